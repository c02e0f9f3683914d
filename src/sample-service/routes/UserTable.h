#pragma once

#include <vector>

#include "server/Router.h"
#include "users/Users.h"

namespace VanticRestKit::sample {

// What is kept for users, and what is made from it. One function for each kind of resource, each in a file of
// its own in this folder.
std::vector<Route> tokenRoutes(Users& users);
std::vector<Route> datasetRoutes(Users& users);
std::vector<Route> historyRoutes(Users& users);
std::vector<Route> savedRoutes(Users& users);
std::vector<Route> segmentRoutes(const Users& users);
std::vector<Route> recommendationRoutes(const Users& users);

/// All of these.
std::vector<Route> userRoutes(Users& users);

/// What shows and steers users and tokens from outside.
std::vector<Route> userControlRoutes(Users& users);

}  // namespace VanticRestKit::sample
