#pragma once

/// \file
/// `TokenResponse`: the response to a token request.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>
#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

/// The response to a token request. Any JSON object can be decoded.
struct TokenResponse {
    /// Information about the response; no operation uses it. Key `meta`; empty if absent or if it cannot be decoded.
    std::optional<ResponseMeta> meta{};
    /// The tokens; empty if absent or if any part cannot be decoded.
    std::optional<Auth> auth{};

    friend bool operator==(const TokenResponse&, const TokenResponse&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<TokenResponse>();

}  // namespace VanticRestKit
