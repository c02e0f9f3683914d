#pragma once

/// \file
/// `ShowsIndex`: the shows of the catalogue in named groups.

#include <VanticRestKit/lumeno/Show/ShowsGrouped.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

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
