#pragma once

/// \file
/// `Route`: the ways from the soak's client to its servers, each with a fault of its own.

#include <support/FaultRelay.h>
#include <support/Http2Origin.h>

#include <chrono>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// Where the host of a route is, and what becomes of it.
enum class RouteHost {
    /// At an address that stays.
    address,
    /// At several addresses of which only the last one answers.
    severalAddresses,
    /// Found by a name server that fails now and then. For a private network only.
    unsteadyName,
    /// In a network that disappears now and then, and comes back with another address of this machine. For a private
    /// network only.
    movingNetwork,
};

/// The host of routes with several addresses, which the session is to be told.
inline constexpr const char* severalAddressesHost = "several.soak";

struct Route {
    std::string name;
    RouteHost host = RouteHost::address;
    bool isHttp2 = false;
    LinkConditions link{};
    Http2Conduct conduct{};
    /// The categories with which a load may fail that is neither cancelled nor in a hurry.
    std::vector<std::string> failures{};
    /// The idle time-out of its requests.
    std::chrono::duration<double> interval{20};
    /// How much rarer its loads are than those of a route with 1.
    unsigned rarity = 1;

    bool allows(const std::string& category) const;
    bool needsPrivateNetwork() const {
        return host == RouteHost::unsteadyName || host == RouteHost::movingNetwork;
    }
};

/// All routes that are possible here.
std::vector<Route> soakRoutes(bool inPrivateNetwork);

}  // namespace VanticRestKit::test
