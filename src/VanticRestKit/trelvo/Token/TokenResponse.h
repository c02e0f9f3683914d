#pragma once

/// \file
/// `TokenResponse`: the answer to a token request.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>
#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

/// The answer to a token request. Any JSON object decodes into one.
struct TokenResponse {
    /// What the service says about its answer. No operation reads it. Key `meta`; empty if absent or if it does not
    /// decode.
    std::optional<ResponseMeta> meta{};
    /// Empty also where one part of it does not decode.
    std::optional<Auth> auth{};

    friend bool operator==(const TokenResponse&, const TokenResponse&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<TokenResponse>();

}  // namespace VanticRestKit
