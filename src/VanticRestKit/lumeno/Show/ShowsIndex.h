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
    /// The name of the group. Key `name`; a required string.
    std::string groupingName{};
    /// In the order of the service.
    std::vector<Show> shows{};
    /// Created from `shows`, in the same order. Shows with missing data are omitted, so the lists may differ in length.
    std::vector<ShowSummary> showSummaries{};

    friend bool operator==(const ShowsGrouped&, const ShowsGrouped&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ShowsGrouped>();

/// The shows of the catalogue, or of one channel, in named groups. Decoding fails if any group or show cannot be
/// decoded.
struct ShowsIndex {
    /// In the order of the service.
    std::vector<ShowsGrouped> groups{};
    /// The id of the alert about the index, for `Endpoint::ProductAlert`.
    std::optional<std::string> alertId{};

    friend bool operator==(const ShowsIndex&, const ShowsIndex&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ShowsIndex>();

}  // namespace VanticRestKit
