#pragma once

// Gives tests access to a `UserClient`.

#include <VanticRestKit/trelvo/detail/UserSession.h>
#include <VanticRestKit/trelvo/UserClient.h>

#include <functional>
#include <memory>
#include <utility>

namespace VanticRestKit {

/// Creates clients with a clock that the test provides.
struct UserClientProbe {
    /// `now` returns the seconds since 1970. It is called on a queue of the client and may be called after the test has
    /// ended.
    static std::shared_ptr<UserClient> make(std::shared_ptr<const TrelvoContext> context,
                                            std::function<double()> now) {
        return UserClient::make(std::move(context), std::move(now));
    }
    static detail::UserSession& session(const UserClient& client) { return *client.session_; }
};

}  // namespace VanticRestKit
