#pragma once

/// \file
/// `BrowseList`: the browse index.

#include <VanticRestKit/lumeno/Navigation/BrowseItem.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// The browse index: groups of entries. Only decoding makes one. One group that does not decode fails it.
struct BrowseList {
    explicit BrowseList(mapping::Fresh) {}

    /// The path of the index, below the API's version prefix.
    std::string href{};
    std::vector<BrowseItem> items{};

    friend bool operator==(const BrowseList&, const BrowseList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<BrowseList>();

}  // namespace VanticRestKit
