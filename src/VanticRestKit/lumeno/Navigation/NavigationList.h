#pragma once

/// \file
/// `NavigationList`: a flat list of channels or categories.

#include <VanticRestKit/lumeno/Navigation/NavigationItem.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// A flat list of channels or categories. It must have a link to itself.
struct NavigationList {
    /// The path of the list, below the API's version prefix.
    std::string selfHref{};
    /// One without a link to itself empties the list.
    std::vector<NavigationItem> items{};

    friend bool operator==(const NavigationList&, const NavigationList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationList>();

}  // namespace VanticRestKit
