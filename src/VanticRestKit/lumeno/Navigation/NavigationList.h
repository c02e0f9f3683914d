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

/// One entry of a flat list of channels or categories. Only the link to itself is required.
struct NavigationItem {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Text for a screen reader.
    std::optional<std::string> accessibilityText{};
    /// Key `logoUrl`; empty if absent or not a string.
    std::optional<std::string> logoUrl{};
    /// Key `logoUrlWide`; empty if absent or not a string.
    std::optional<std::string> logoUrlWide{};
    /// Key `path`; empty if absent or not a string.
    std::optional<std::string> path{};
    /// The path of the entry's target, relative to the API's version prefix.
    std::string selfHref{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Image> images{};

    friend bool operator==(const NavigationItem&, const NavigationItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationItem>();

/// A flat list of channels or categories. Only the link to itself is required.
struct NavigationList {
    /// The path of the list, relative to the API's version prefix.
    std::string selfHref{};
    /// Empty if any element has no link to itself.
    std::vector<NavigationItem> items{};

    friend bool operator==(const NavigationList&, const NavigationList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NavigationList>();

}  // namespace VanticRestKit
