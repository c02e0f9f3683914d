#pragma once

/// \file
/// `ShowsGrouped`: one named group of the shows index.

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowSummary.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// One named group of the shows index.
struct ShowsGrouped {
    std::string groupingName{};
    /// In the service's order.
    std::vector<Show> shows{};
    /// Made from `shows` in their order, those left out that cannot give one: the two lists may differ in length.
    std::vector<ShowSummary> showSummaries{};

    friend bool operator==(const ShowsGrouped&, const ShowsGrouped&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ShowsGrouped>();

}  // namespace VanticRestKit
