#include "Routes.h"

#include <algorithm>

namespace VanticRestKit::test {

namespace {

using namespace std::chrono_literals;

// A stall blocks a connection for this long.
constexpr std::chrono::milliseconds shortInterval{500};

std::vector<Route> plainRoutes() {
    const std::vector<std::string> lost{"offline"};
    return {
        {.name = "latency", .link = {.minLatency = 0ms, .maxLatency = 15ms}},
        {.name = "pauses", .link = {.fault = LinkFault::pause, .share = 0.5, .longestPause = 200ms}},
        {.name = "stalls",
         .link = {.fault = LinkFault::stall, .share = 0.1},
         .failures = {"timedOut"},
         .interval = shortInterval},
        {.name = "truncation", .link = {.fault = LinkFault::truncate, .share = 0.4}, .failures = lost},
        {.name = "resets", .link = {.fault = LinkFault::reset, .share = 0.4}, .failures = lost},
        {.name = "half-closed answers",
         .link = {.fault = LinkFault::halfCloseAnswer, .share = 0.4},
         .failures = lost},
        {.name = "half-closed requests",
         .link = {.fault = LinkFault::halfCloseRequest, .share = 0.4},
         .failures = lost},
        {.name = "refusals", .link = {.fault = LinkFault::refuse, .share = 0.5}, .failures = lost},
        {.name = "dead addresses", .host = RouteHost::severalAddresses, .rarity = 8},
    };
}

std::vector<Route> http2Routes() {
    const std::vector<std::string> lost{"offline"};
    return {
        {.name = "h2 reordering",
         .isHttp2 = true,
         .link = {.minLatency = 0ms, .maxLatency = 5ms},
         .conduct = {.longestWait = 40ms}},
        {.name = "h2 goaway",
         .isHttp2 = true,
         .conduct = {.longestWait = 10ms, .goAways = 0.01, .goAwaysWithoutLast = 0.01},
         .failures = lost},
        {.name = "h2 rst_stream",
         .isHttp2 = true,
         .conduct = {.longestWait = 10ms, .resets = 0.05, .refusals = 0.02},
         .failures = lost},
        {.name = "h2 stalls",
         .isHttp2 = true,
         .link = {.fault = LinkFault::stall, .share = 0.2, .lastByte = 50000},
         .conduct = {.goAways = 0.02},
         .failures = {"timedOut", "offline"},
         .interval = shortInterval},
        {.name = "h2 resets",
         .isHttp2 = true,
         .link = {.fault = LinkFault::reset, .share = 0.5, .lastByte = 50000},
         .conduct = {.goAways = 0.02},
         .failures = lost},
        {.name = "h2 certificates",
         .isHttp2 = true,
         .conduct = {.goAways = 0.02, .otherCertificates = 0.3},
         .failures = {"offline", "insecure"},
         .rarity = 2},
    };
}

std::vector<Route> privateRoutes() {
    return {
        {.name = "unsteady names",
         .host = RouteHost::unsteadyName,
         .failures = {"offline", "timedOut"},
         .rarity = 2},
        {.name = "moving network",
         .host = RouteHost::movingNetwork,
         .failures = {"offline", "timedOut"},
         .interval = shortInterval},
        {.name = "h2 moving network",
         .host = RouteHost::movingNetwork,
         .isHttp2 = true,
         .failures = {"offline", "timedOut"},
         .interval = shortInterval},
    };
}

}  // namespace

bool Route::allows(const std::string& category) const {
    return std::find(failures.begin(), failures.end(), category) != failures.end();
}

std::vector<Route> soakRoutes(bool inPrivateNetwork) {
    std::vector<Route> routes = plainRoutes();
    for (auto& route : http2Routes()) routes.push_back(std::move(route));
    if (inPrivateNetwork) {
        for (auto& route : privateRoutes()) routes.push_back(std::move(route));
    }
    return routes;
}

}  // namespace VanticRestKit::test
