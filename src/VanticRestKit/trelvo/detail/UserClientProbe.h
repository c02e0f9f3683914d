#pragma once

// How tests reach into a `UserClient`.

#include <VanticRestKit/trelvo/detail/UserSession.h>
#include <VanticRestKit/trelvo/UserClient.h>

#include <functional>
#include <memory>
#include <utility>

namespace VanticRestKit {

/// Makes clients with a clock of the test's own.
struct UserClientProbe {
    /// `now` returns the seconds since 1970, on a queue of the client, and may outlive the test.
    static std::shared_ptr<UserClient> make(std::shared_ptr<const TrelvoContext> context,
                                            std::function<double()> now) {
        return UserClient::make(std::move(context), std::move(now));
    }
    static detail::UserSession& session(const UserClient& client) { return *client.session_; }
};

}  // namespace VanticRestKit
