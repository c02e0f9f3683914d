#pragma once

/// \file
/// `ResponseMeta`: information about a response of the user data service.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Information about a response of the user data service. The library does not use it.
struct ResponseMeta {
    /// Key `count`; empty if absent or null; decoding fails for another type.
    std::optional<std::uint64_t> count{};
    /// Key `data`; empty if absent or null; decoding fails for another type.
    std::optional<std::string> data{};
    /// Key `status_code`; empty if absent or null; decoding fails for another type.
    std::optional<std::uint64_t> statusCode{};

    friend bool operator==(const ResponseMeta&, const ResponseMeta&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ResponseMeta>();

}  // namespace VanticRestKit
