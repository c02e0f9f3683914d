#pragma once

/// \file
/// The state of the user of a `UserClient`: `UserAuth` and `SignInState`.

#include <VanticRestKit/trelvo/Common/Auth.h>

#include <cstdint>
#include <string>

namespace VanticRestKit {

/// The tokens of a user, in the form that a host saves between runs.
struct UserAuth {
    /// The id of the user, as in the context.
    std::string uid{};
    /// The tokens.
    Auth auth{};

    friend bool operator==(const UserAuth&, const UserAuth&) = default;
};

/// Whether a client has tokens for its user.
enum class SignInState : std::uint8_t {
    /// There are no tokens: initially, after signing out, or if they could not be requested.
    signedOut,
    /// There are tokens. The service may still refuse them.
    signedIn,
    /// The service responded to the last token request with 401: the user has to consent again. There may still be
    /// older tokens.
    consentNeeded,
};

}  // namespace VanticRestKit
