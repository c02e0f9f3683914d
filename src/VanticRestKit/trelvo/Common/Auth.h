#pragma once

/// \file
/// `Auth`: the tokens of a signed-in user.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>

namespace VanticRestKit {

/// The tokens of a signed-in user, held in memory alone.
struct Auth {
    std::string accessToken{};
    /// When the access token ends. A service may send any number.
    Date expiry{};
    std::string refreshToken{};
    std::string tokenType{};

    friend bool operator==(const Auth&, const Auth&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Auth>();

}  // namespace VanticRestKit
