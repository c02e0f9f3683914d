#pragma once

/// \file
/// `World`: the servers and relays of the soak, in a process of their own.

#include "Routes.h"

#include <support/Certificates.h>
#include <support/Sockets.h>

#include <sys/types.h>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// What happened on a route, as its servers saw it.
struct RouteCounts {
    std::size_t connections = 0;
    std::size_t faults = 0;
};

/// Serves routes in a child process, so that memory, threads and descriptors of this one are the client's alone. To be
/// made while this process has one thread.
class World {
public:
    World(const std::vector<Route>& routes, bool inPrivateNetwork, std::uint64_t seed);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Where a route begins: "https://127.0.0.1:41234". Empty if the world could not be made.
    const std::vector<std::string>& bases() const noexcept { return bases_; }
    std::uint16_t portOf(std::size_t route) const { return ports_.at(route); }
    /// The certificate of the root that the servers' own are signed by.
    const std::string& rootCertificate() const noexcept { return rootCertificate_; }

    /// Ends the process: what happened on each route.
    std::vector<RouteCounts> end();

private:
    pid_t process_ = -1;
    Socket control_;
    std::string rootCertificate_;
    std::vector<std::uint16_t> ports_;
    std::vector<std::string> bases_;
};

}  // namespace VanticRestKit::test
