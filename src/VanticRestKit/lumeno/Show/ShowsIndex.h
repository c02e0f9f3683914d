#pragma once

/// \file
/// `ShowsIndex`: the shows of the catalogue in named groups, each a `ShowsGrouped`.

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowSummary.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One named group of the shows index.
struct ShowsGrouped {
    /// The name of the group. Key `name`; must be there and be a string.
    std::string groupingName{};
    /// In the service's order.
    std::vector<Show> shows{};
    /// Made from `shows` in their order, those left out that cannot give one: the two lists may differ in length.
    std::vector<ShowSummary> showSummaries{};

    friend bool operator==(const ShowsGrouped&, const ShowsGrouped&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ShowsGrouped>();

/// The shows of the catalogue, or of one channel, in named groups. One group or show that does not decode fails it.
struct ShowsIndex {
    /// In the service's order.
    std::vector<ShowsGrouped> groups{};
    /// What `Endpoint::ProductAlert` fetches the alert of the index by.
    std::optional<std::string> alertId{};

    friend bool operator==(const ShowsIndex&, const ShowsIndex&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ShowsIndex>();

}  // namespace VanticRestKit
