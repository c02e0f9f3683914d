#pragma once

/// \file
/// `PendingConnects`: the sockets whose connection is not established yet.

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
/// libcurl leaves them out of its wait when it goes on from one address of a host to the next, and it gives an
/// address that does not answer half of the whole time. So they are waited for here, and a socket that takes too long
/// is made to fail, which has libcurl go on to the next address. For the I/O thread only.
class PendingConnects {
public:
    void add(std::shared_ptr<Connection> connection) { pending_.push_back({std::move(connection), false}); }

    /// Forgets the sockets that are connected or closed, and makes those fail whose time is up at `now`. Returns
    /// whether anything has changed: libcurl has to look at it before the next wait.
    bool update(TimePoint now);

    /// Adds the sockets to those that a wait watches.
    void addTo(std::vector<curl_waitfd>& watched) const;

    /// When the time of the next one is up; empty if there is none.
    std::optional<TimePoint> next() const;

private:
    struct Pending {
        std::shared_ptr<Connection> connection;
        /// Whether it was seen to have failed. libcurl is to close it.
        bool hasFailed;
    };

    std::vector<Pending> pending_;
};

}  // namespace VanticRestKit::detail
