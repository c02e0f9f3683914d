#pragma once

/// \file
/// `RelatedShowList`: shows that are similar to a show.

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <vector>

namespace VanticRestKit {

/// Shows that are similar to a show. Any JSON object can be decoded.
struct RelatedShowList {
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Show> items{};

    friend bool operator==(const RelatedShowList&, const RelatedShowList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<RelatedShowList>();

}  // namespace VanticRestKit
