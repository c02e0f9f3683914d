#pragma once

/// \file
/// `Link`: a named way to another resource of the service.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A named way to another resource of the service. Without a `href` it does not decode; of all else nothing can
/// fail it.
struct Link {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// A path below the API's version prefix: `Endpoint::Resource` loads it.
    std::string href{};
    /// Empty also where the service sends none, or anything that is not a list of texts.
    std::vector<std::string> tags{};

    friend bool operator==(const Link&, const Link&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Link>();

}  // namespace VanticRestKit
