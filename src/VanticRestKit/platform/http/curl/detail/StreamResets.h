#pragma once

/// \file
/// `StreamResets`: ensures that the reset of a cancelled request's stream reaches the server.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>

#include <memory>
#include <optional>
#include <vector>

namespace VanticRestKit::detail {

/// When a request leaves a multiplexed connection, libcurl resets its stream, but the reset stays in a buffer until
/// something else is sent. Another request on the connection can be used to flush it. If there is none, the connection
/// is shut down after a short wait for a next request that would flush it: the server must not keep working on a
/// cancelled request.
class StreamResets {
public:
    explicit StreamResets(const Connections& connections) : connections_(connections) {}

    /// An unfinished request has just left `connection`. `other`: one that is still on it, or null.
    void left(const std::shared_ptr<Connection>& connection, Exchange* other, TimePoint now);

    /// Shuts down the connections whose wait is over at `now`.
    void shutDownQuiet(TimePoint now);

    /// When to check again; empty if there is nothing to wait for.
    std::optional<TimePoint> next() const;

private:
    struct Quiet {
        std::shared_ptr<Connection> connection;
        std::size_t requestsSent;
        TimePoint due;
    };

    const Connections& connections_;
    // In the order of `due`, because all wait equally long.
    std::vector<Quiet> quiet_;
};

}  // namespace VanticRestKit::detail
