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

/// What happens to a connection at some byte of what the server sends.
enum class LinkFault {
    none,
    /// Nothing arrives for a while, as when a piece is lost and sent again.
    pause,
    /// Nothing arrives any more, in either direction, and no end is seen.
    stall,
    /// Both directions end in good order.
    truncate,
    /// The connection is reset.
    reset,
    /// The server's direction ends; the client's stays open, and leads nowhere.
    halfCloseAnswer,
    /// The server sees the end of the client's direction, after the first piece of it.
    halfCloseRequest,
    /// The connection is reset as soon as it is made.
    refuse,
};

/// How a relay treats its connections.
struct LinkConditions {
    LinkFault fault = LinkFault::none;
    /// Which share of the connections has the fault, between 0 and 1.
    double share = 0;
    /// The fault comes after a random number of bytes from the server up to this one.
    std::size_t lastByte = 40000;
    /// How long a `pause` is at most.
    std::chrono::milliseconds longestPause{300};
    /// What each piece from the server takes longer, at random.
    std::chrono::milliseconds minLatency{0};
    std::chrono::milliseconds maxLatency{0};
};

/// Carries bytes between a port of 127.0.0.1 and `target`. Its random numbers begin with `seed`. For the thread of the
/// reactor, which must not run any more when the relay is destroyed.
class FaultRelay {
public:
    FaultRelay(Reactor& reactor, std::uint16_t target, const LinkConditions& conditions, std::uint64_t seed);
    ~FaultRelay();
    FaultRelay(const FaultRelay&) = delete;
    FaultRelay& operator=(const FaultRelay&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    /// How many connections were made, and how many faults came to pass. For any thread.
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
