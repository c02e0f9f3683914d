#pragma once

/// \file
/// `Auth`: the tokens of a signed-in user.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <string>

namespace VanticRestKit {

/// The tokens of a signed-in user. The library keeps them only in memory.
struct Auth {
    /// The bearer token of requests. Key `access_token`; a required string.
    std::string accessToken{};
    /// The expiry date of the access token. A service may send any number.
    Date expiry{};
    /// The token for requests for new tokens. Key `refresh_token`; a required string.
    std::string refreshToken{};
    /// Stored, but not used. Key `token_type`; a required string.
    std::string tokenType{};

    friend bool operator==(const Auth&, const Auth&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Auth>();

}  // namespace VanticRestKit
