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

/// One titled group of the browse index. Only decoding makes one. What is left out is without characters or
/// elements; anything of a wrong type fails it.
struct BrowseItem {
    /// For decoders alone.
    explicit BrowseItem(mapping::Fresh) {}

    /// Key `id`; an empty string if absent; another type fails the decoding.
    std::string id{};
    /// The title. Key `title`; an empty string if absent; another type fails the decoding.
    std::string title{};
    /// One that does not decode fails the group.
    std::vector<NavigationItem> items{};
    /// For a screen reader.
    std::string accessibilityText{};

    friend bool operator==(const BrowseItem&, const BrowseItem&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<BrowseItem>();

/// The browse index: groups of entries. Only decoding makes one. One group that does not decode fails it.
struct BrowseList {
    /// For decoders alone.
    explicit BrowseList(mapping::Fresh) {}

    /// The path of the index, below the API's version prefix.
    std::string href{};
    /// Key `_embedded.items`; an empty list if absent; another type fails the decoding.
    std::vector<BrowseItem> items{};

    friend bool operator==(const BrowseList&, const BrowseList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<BrowseList>();

}  // namespace VanticRestKit
