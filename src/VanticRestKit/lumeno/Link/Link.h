#pragma once

/// \file
/// `Link`: a named link to another resource of the service.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A named link to another resource of the service. Only `href` is required.
struct Link {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// A path relative to the API's version prefix, for `Endpoint::Resource`. Key `href`; a required string.
    std::string href{};
    /// Key `tags`; empty if absent or not a list of strings.
    std::vector<std::string> tags{};

    friend bool operator==(const Link&, const Link&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Link>();

}  // namespace VanticRestKit
