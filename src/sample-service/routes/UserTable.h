#pragma once

#include <vector>

#include "server/Router.h"
#include "users/Users.h"

namespace VanticRestKit::sample {

// User data and what is derived from it. One function for each kind of resource, each in its own file in this folder.
std::vector<Route> tokenRoutes(Users& users);
std::vector<Route> datasetRoutes(Users& users);
std::vector<Route> historyRoutes(Users& users);
std::vector<Route> savedRoutes(Users& users);
std::vector<Route> segmentRoutes(const Users& users);
std::vector<Route> recommendationRoutes(const Users& users);

/// All of these.
std::vector<Route> userRoutes(Users& users);

/// The control routes for users and tokens.
std::vector<Route> userControlRoutes(Users& users);

}  // namespace VanticRestKit::sample
