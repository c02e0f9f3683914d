#include "routes/Table.h"

#include <iterator>

namespace VanticRestKit::sample {

std::vector<Route> serviceRoutes() {
    std::vector<Route> table;
    for (auto* kind : {
             timeRoutes,
             avatarRoutes,
             pictureRoutes,
             videoRoutes,
             showRoutes,
             screenRoutes,
             navigationRoutes,
             liveRoutes,
             noticeRoutes,
             remapRoutes,
         }) {
        auto routes = kind();
        std::move(routes.begin(), routes.end(), std::back_inserter(table));
    }
    return table;
}

}  // namespace VanticRestKit::sample
