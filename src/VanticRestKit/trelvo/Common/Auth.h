#pragma once

/// \file
/// `Auth`: the tokens of a signed-in user.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <string>

namespace VanticRestKit {

/// The tokens of a signed-in user, held in memory alone.
struct Auth {
    /// Sent with requests as a bearer credential. Key `access_token`; must be there and be a string.
    std::string accessToken{};
    /// When the access token ends. A service may send any number.
    Date expiry{};
    /// Sent with requests for new tokens. Key `refresh_token`; must be there and be a string.
    std::string refreshToken{};
    /// Kept and never read. Key `token_type`; must be there and be a string.
    std::string tokenType{};

    friend bool operator==(const Auth&, const Auth&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Auth>();

}  // namespace VanticRestKit
