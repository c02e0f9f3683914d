#pragma once

/// \file
/// `Route`: the paths from the soak test's client to its servers, each with a different fault.

#include <support/FaultRelay.h>
#include <support/Http2Origin.h>

#include <chrono>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// How the host of a route is addressed.
enum class RouteHost {
    /// At a fixed address.
    address,
    /// At several addresses, of which only the last one answers.
    severalAddresses,
    /// Found by a name server that fails intermittently. For a private network only.
    unsteadyName,
    /// In a network that disappears from time to time and comes back with another address of this machine. For a
    /// private network only.
    movingNetwork,
};

/// The host name of routes with several addresses, which the session must resolve.
inline constexpr const char* severalAddressesHost = "several.soak";

struct Route {
    std::string name;
    RouteHost host = RouteHost::address;
    bool isHttp2 = false;
    LinkConditions link{};
    Http2Conduct conduct{};
    /// The categories with which a load may fail, unless it is cancelled or has a short deadline.
    std::vector<std::string> failures{};
    /// The idle timeout of its requests.
    std::chrono::duration<double> interval{20};
    /// How many times rarer its loads are than those of a route with rarity 1.
    unsigned rarity = 1;

    bool allows(const std::string& category) const;
    bool needsPrivateNetwork() const {
        return host == RouteHost::unsteadyName || host == RouteHost::movingNetwork;
    }
};

/// All routes that are possible here.
std::vector<Route> soakRoutes(bool inPrivateNetwork);

}  // namespace VanticRestKit::test
