#pragma once

/// \file
/// `Connections`: the sockets that libcurl has open, and which request went out on which.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace VanticRestKit::detail {

/// One connection as far as libcurl lets us see it.
struct Connection {
    int socket = -1;
    /// Both ends as text; empty until it was asked for.
    std::string ends{};
    /// How many requests are on it now.
    std::size_t streams = 0;
    /// Whether a request could be sent on it at least once.
    bool isReady = false;
    /// How many requests were ever sent on it.
    std::size_t sendings = 0;
    /// When a piece of any answer came on it.
    TimePoint lastMoved{};
    /// Whether a request on it ran out of time while nothing at all moved on it.
    bool isSuspect = false;
    /// When to stop waiting for the address to answer.
    TimePoint giveUpAt = TimePoint::max();
    /// Whether that time came.
    bool wasGivenUp = false;
};

/// Both ends of a connection, as libcurl tells them before it sends a request.
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

    /// Opens a socket that no child process inherits; below zero where there is none.
    int open(int family, int type, int protocol);
    /// Closes a socket that `open` gave.
    int close(int socket);

    /// The open connection between `ends`; null if there is none.
    std::shared_ptr<Connection> find(const ConnectionEnds& ends);
    /// The connection of `socket`; null if it is closed.
    std::shared_ptr<Connection> find(int socket) const;

    /// Makes a connection useless at once: whoever is on it, and whoever is to use it, finds it at its end.
    void shutDown(const Connection& connection) const;

    /// Makes useless those that no request is on. Whoever is still connecting is left alone.
    void shutDownIdle() const;

    /// Makes useless those that began at `address` of this machine.
    void shutDownFrom(const std::string& address) const;

    /// When the peer's last bytes arrived on `connection`; empty where the system does not tell.
    std::optional<TimePoint> lastReceived(const Connection& connection, TimePoint now) const;

private:
    std::unordered_map<int, std::shared_ptr<Connection>> bySocket_;
    std::unordered_map<std::string, std::shared_ptr<Connection>> byEnds_;
    // What is looked for; kept for its memory.
    std::string wanted_;
};

}  // namespace VanticRestKit::detail
