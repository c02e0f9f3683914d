#pragma once

/// \file
/// `RelatedShowList`: shows that are like another.

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <vector>

namespace VanticRestKit {

/// Shows that are like another. Any JSON object decodes into one.
struct RelatedShowList {
    /// One that does not decode empties the list.
    std::vector<Show> items{};

    friend bool operator==(const RelatedShowList&, const RelatedShowList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<RelatedShowList>();

}  // namespace VanticRestKit
