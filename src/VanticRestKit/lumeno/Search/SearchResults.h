#pragma once

/// \file
/// `SearchResults`: what a search found.

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// What a search found. The objects of results and of facts about them must be there.
struct SearchResults {
    /// What was searched for, as the service took it.
    std::optional<std::string> keyword{};
    /// One that does not decode empties the list.
    std::vector<Show> items{};

    friend bool operator==(const SearchResults&, const SearchResults&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<SearchResults>();

}  // namespace VanticRestKit
