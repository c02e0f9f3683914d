#pragma once

/// \file
/// `Connections`: the sockets that libcurl has open, and the state of their connections.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace VanticRestKit::detail {

/// One connection, as far as libcurl exposes it.
struct Connection {
    int socket = -1;
    /// The addresses and ports of both ends as a string; empty until needed.
    std::string ends{};
    /// How many requests currently use it.
    std::size_t streams = 0;
    /// Whether it has been established: set before the first request is sent on it.
    bool isReady = false;
    /// How many requests have been sent on it.
    std::size_t requestsSent = 0;
    /// When data of any response was last received on it.
    TimePoint lastMoved{};
    /// Whether a request on it timed out while nothing at all was received on it.
    bool isSuspect = false;
    /// When to give up connecting to the address.
    TimePoint giveUpAt = TimePoint::max();
    /// Whether it was given up.
    bool wasGivenUp = false;
};

/// Both ends of a connection, as libcurl reports them before it sends a request.
struct ConnectionEnds {
    const char* remoteAddress;
    const char* localAddress;
    int remotePort;
    int localPort;
};

/// Knows all open sockets. For the I/O thread only.
class Connections {
public:
    Connections() = default;
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;

    /// Opens a socket that child processes do not inherit; negative if that fails.
    int open(int family, int type, int protocol);
    /// Closes a socket that `open` returned.
    int close(int socket);

    /// The open connection between `ends`; null if there is none.
    std::shared_ptr<Connection> find(const ConnectionEnds& ends);
    /// The connection of `socket`; null if it is closed.
    std::shared_ptr<Connection> find(int socket) const;

    /// Shuts down a connection at once: current and future requests on it see it as closed.
    void shutDown(const Connection& connection) const;

    /// Shuts down connections that no request uses, except those that are still connecting.
    void shutDownIdle() const;

    /// Shuts down connections from the local address `address`.
    void shutDownFrom(const std::string& address) const;

    /// When the peer's last bytes arrived on `connection`; empty if the system does not report it.
    std::optional<TimePoint> lastReceived(const Connection& connection, TimePoint now) const;

private:
    std::unordered_map<int, std::shared_ptr<Connection>> bySocket_;
    std::unordered_map<std::string, std::shared_ptr<Connection>> byEnds_;
    // The ends to find; a member to reuse its memory.
    std::string wanted_;
};

}  // namespace VanticRestKit::detail
