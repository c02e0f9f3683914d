#pragma once

/// \file
/// `PendingConnects`: the sockets that are still connecting.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <curl/curl.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

/// Watches sockets from `connect` until they are connected or have failed.
///
/// libcurl does not wait for them when it moves from one address of a host to the next, and it spends half of the total
/// time on an address that does not respond. So they are watched here, and a socket that takes too long is made to
/// fail, which makes libcurl try the next address. For the I/O thread only.
class PendingConnects {
public:
    void add(std::shared_ptr<Connection> connection) { pending_.push_back({std::move(connection), false}); }

    /// Removes sockets that are connected or closed, and makes those fail whose time is up at `now`. Returns whether
    /// anything has changed; libcurl must then run before the next wait.
    bool update(TimePoint now);

    /// Adds the sockets to those to watch.
    void addTo(std::vector<curl_waitfd>& watched) const;

    /// When the next time limit ends; empty if there is none.
    std::optional<TimePoint> next() const;

private:
    struct Pending {
        std::shared_ptr<Connection> connection;
        /// Whether it has failed; libcurl will close it.
        bool hasFailed;
    };

    std::vector<Pending> pending_;
};

}  // namespace VanticRestKit::detail
