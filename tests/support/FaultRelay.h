#pragma once

/// \file
/// `FaultRelay`: a bad network between a client and a server.

#include "Reactor.h"
#include "Sockets.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>

namespace VanticRestKit::test {

/// What happens to a connection at some byte of the server's data.
enum class LinkFault {
    none,
    /// Nothing arrives for a while, as after a lost packet that is sent again.
    pause,
    /// Nothing arrives any more in either direction, and the connection is not closed.
    stall,
    /// Both directions are closed normally.
    truncate,
    /// The connection is reset.
    reset,
    /// The server's direction is closed. The client's direction stays open, but its data is discarded.
    halfCloseAnswer,
    /// The client's direction is closed towards the server after its first packet.
    halfCloseRequest,
    /// The connection is reset as soon as it is established.
    refuse,
};

/// How a relay treats its connections.
struct LinkConditions {
    LinkFault fault = LinkFault::none;
    /// The share of connections with the fault, from 0 to 1.
    double share = 0;
    /// The fault occurs after a random number of bytes from the server, at most this.
    std::size_t lastByte = 40000;
    /// The maximum length of a `pause`.
    std::chrono::milliseconds longestPause{300};
    /// The range of the random latency of each packet from the server.
    std::chrono::milliseconds minLatency{0};
    std::chrono::milliseconds maxLatency{0};
};

/// Forwards bytes between a port of 127.0.0.1 and `target`. `seed` starts its random numbers. For the reactor's thread.
/// The reactor must have stopped when the relay is destroyed.
class FaultRelay {
public:
    FaultRelay(Reactor& reactor, std::uint16_t target, const LinkConditions& conditions, std::uint64_t seed);
    ~FaultRelay();
    FaultRelay(const FaultRelay&) = delete;
    FaultRelay& operator=(const FaultRelay&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    /// The number of connections and the number of faults so far. For any thread.
    std::size_t connectionCount() const noexcept { return connections_; }
    std::size_t faultCount() const noexcept { return faults_; }

private:
    class Link;

    void accept();
    std::size_t random(std::size_t last);

    Reactor& reactor_;
    const std::uint16_t target_;
    const LinkConditions conditions_;
    std::mt19937_64 numbers_;
    Socket listener_;
    std::uint16_t port_ = 0;
    std::atomic<std::size_t> connections_ = 0;
    std::atomic<std::size_t> faults_ = 0;
};

}  // namespace VanticRestKit::test
