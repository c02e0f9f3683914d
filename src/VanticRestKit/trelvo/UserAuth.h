#pragma once

/// \file
/// What a `UserClient` holds of its user: `UserAuth` and `SignInState`.

#include <VanticRestKit/trelvo/Common/Auth.h>

#include <cstdint>
#include <string>

namespace VanticRestKit {

/// The tokens of one user, as a host keeps them between two runs.
struct UserAuth {
    /// The user that the tokens belong to, as the context names it.
    std::string uid{};
    /// The tokens.
    Auth auth{};

    friend bool operator==(const UserAuth&, const UserAuth&) = default;
};

/// How a client stands with its user.
enum class SignInState : std::uint8_t {
    /// No tokens are held: at first, after a sign-out, or while they could not be had.
    signedOut,
    /// Tokens are held. The service may still refuse them.
    signedIn,
    /// The last request for tokens was answered 401: the user has to consent anew. Older tokens may still be held.
    consentNeeded,
};

}  // namespace VanticRestKit
