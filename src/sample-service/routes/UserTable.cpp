#include "routes/UserTable.h"

#include <iterator>

namespace VanticRestKit::sample {

namespace {

void append(std::vector<Route>& table, std::vector<Route> routes) {
    std::move(routes.begin(), routes.end(), std::back_inserter(table));
}

}  // namespace

std::vector<Route> userRoutes(Users& users) {
    std::vector<Route> table;
    append(table, tokenRoutes(users));
    append(table, datasetRoutes(users));
    append(table, historyRoutes(users));
    append(table, savedRoutes(users));
    append(table, segmentRoutes(users));
    append(table, recommendationRoutes(users));
    return table;
}

}  // namespace VanticRestKit::sample
