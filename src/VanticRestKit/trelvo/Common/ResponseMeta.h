#pragma once

/// \file
/// `ResponseMeta`: facts about an answer of the user data service.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Facts about an answer of the user data service. The library reads none of them.
struct ResponseMeta {
    /// Key `count`; empty if absent or null; another type fails the decoding.
    std::optional<std::uint64_t> count{};
    /// Key `data`; empty if absent or null; another type fails the decoding.
    std::optional<std::string> data{};
    /// Key `status_code`; empty if absent or null; another type fails the decoding.
    std::optional<std::uint64_t> statusCode{};

    friend bool operator==(const ResponseMeta&, const ResponseMeta&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ResponseMeta>();

}  // namespace VanticRestKit
