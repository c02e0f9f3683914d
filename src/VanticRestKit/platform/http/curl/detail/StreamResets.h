#pragma once

/// \file
/// `StreamResets`: sees to it that the end of a request reaches the server.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>

#include <memory>
#include <optional>
#include <vector>

namespace VanticRestKit::detail {

/// When a request leaves a connection that carries several, libcurl resets its stream, but the reset stays in
/// its buffer until something else goes out. Another request there can be made to push it out. Where there is
/// none, the connection gets a moment for the next request to take the reset along, and is shut down then: a
/// server must not work for nobody.
class StreamResets {
public:
    explicit StreamResets(const Connections& connections) : connections_(connections) {}

    /// A request has just left `connection` before its end. `other`: one that is still on it, or null.
    void left(const std::shared_ptr<Connection>& connection, Exchange* other, TimePoint now);

    /// Shuts down the connections whose moment is over at `now`.
    void shutDownQuiet(TimePoint now);

    /// When to look again; empty if there is nothing to wait for.
    std::optional<TimePoint> next() const;

private:
    struct Quiet {
        std::shared_ptr<Connection> connection;
        std::size_t sendings;
        TimePoint due;
    };

    const Connections& connections_;
    // In the order of their time, because all wait equally long.
    std::vector<Quiet> quiet_;
};

}  // namespace VanticRestKit::detail
