#pragma once

/// \file
/// `World`: the servers and relays of the soak test, in a separate process.

#include "Routes.h"

#include <support/Certificates.h>
#include <support/Sockets.h>

#include <sys/types.h>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// The events on a route, as counted by its servers.
struct RouteCounts {
    std::size_t connections = 0;
    std::size_t faults = 0;
};

/// Serves routes in a child process, so that memory, threads and descriptors of this process belong to the client only.
/// Must be constructed while this process has one thread.
class World {
public:
    World(const std::vector<Route>& routes, bool inPrivateNetwork, std::uint64_t seed);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// The base URL of each route: "https://127.0.0.1:41234". Empty if the servers could not be started.
    const std::vector<std::string>& bases() const noexcept { return bases_; }
    std::uint16_t portOf(std::size_t route) const { return ports_.at(route); }
    /// The root certificate that signed the servers' certificates.
    const std::string& rootCertificate() const noexcept { return rootCertificate_; }

    /// Ends the process and returns the counts of each route.
    std::vector<RouteCounts> end();

private:
    pid_t process_ = -1;
    Socket control_;
    std::string rootCertificate_;
    std::vector<std::uint16_t> ports_;
    std::vector<std::string> bases_;
};

}  // namespace VanticRestKit::test
