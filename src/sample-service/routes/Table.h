#pragma once

#include <vector>

#include "server/Faults.h"
#include "server/RequestLog.h"
#include "server/Router.h"

namespace VanticRestKit::sample {

// One function for each kind of resource, each in its own file in this folder.
std::vector<Route> timeRoutes();
std::vector<Route> avatarRoutes();
std::vector<Route> pictureRoutes();
std::vector<Route> videoRoutes();
std::vector<Route> showRoutes();
std::vector<Route> screenRoutes();
std::vector<Route> navigationRoutes();
std::vector<Route> liveRoutes();
std::vector<Route> noticeRoutes();
std::vector<Route> remapRoutes();

/// The table of routes.
std::vector<Route> serviceRoutes();

/// The control routes: faults, the log of requests, state, shutdown.
std::vector<Route> controlRoutes(Faults& faults, RequestLog& log);

}  // namespace VanticRestKit::sample
