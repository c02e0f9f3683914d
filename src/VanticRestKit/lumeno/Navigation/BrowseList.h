#pragma once

/// \file
/// `BrowseList`: the browse index, with its groups.

#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// One titled group of the browse index; created only by decoding. Absent fields are empty; decoding fails if a field
/// is of another type.
struct BrowseItem {
    /// Used only for decoding.
    explicit BrowseItem(mapping::Fresh) {}

    /// Key `id`; an empty string if absent; decoding fails for another type.
    std::string id{};
    /// The title. Key `title`; an empty string if absent; decoding fails for another type.
    std::string title{};
    /// Key `items`; empty if absent. Decoding fails if any element cannot be decoded.
    std::vector<NavigationItem> items{};
    /// Text for a screen reader.
    std::string accessibilityText{};

    friend bool operator==(const BrowseItem&, const BrowseItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<BrowseItem>();

/// The browse index: groups of entries; created only by decoding. Decoding fails if any group cannot be decoded.
struct BrowseList {
    /// Used only for decoding.
    explicit BrowseList(mapping::Fresh) {}

    /// The path of the index, relative to the API's version prefix.
    std::string href{};
    /// Key `_embedded.items`; an empty list if absent; decoding fails for another type.
    std::vector<BrowseItem> items{};

    friend bool operator==(const BrowseList&, const BrowseList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<BrowseList>();

}  // namespace VanticRestKit
