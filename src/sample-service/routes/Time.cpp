#include "server/Clock.h"

#include "routes/Table.h"

namespace VanticRestKit::sample {

std::vector<Route> timeRoutes() {
    return {{"GET", "v2/time", [](const Request&, const Captures&) {
                 Reply reply;
                 reply.body = serviceClock().now();
                 return reply;
             }}};
}

}  // namespace VanticRestKit::sample
