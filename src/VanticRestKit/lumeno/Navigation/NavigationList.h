#pragma once

/// \file
/// `NavigationList`: a flat list of channels or categories, with its entries.

#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One entry of a flat list of channels or categories. It must have a link to itself; nothing else fails it.
struct NavigationItem {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// For a screen reader.
    std::optional<std::string> accessibilityText{};
    /// Key `logoUrl`; empty if absent or not a string.
    std::optional<std::string> logoUrl{};
    /// Key `logoUrlWide`; empty if absent or not a string.
    std::optional<std::string> logoUrlWide{};
    /// Key `path`; empty if absent or not a string.
    std::optional<std::string> path{};
    /// The path of what the entry leads to, below the API's version prefix.
    std::string selfHref{};
    /// One that does not decode empties the list.
    std::vector<Image> images{};

    friend bool operator==(const NavigationItem&, const NavigationItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationItem>();

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
