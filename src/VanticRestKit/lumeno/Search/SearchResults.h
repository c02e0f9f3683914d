#pragma once

/// \file
/// `SearchResults`: the shows that a search found.

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// The shows that a search found. The objects `results` and `_meta` are required.
struct SearchResults {
    /// The keyword as the service understood it. Key `_meta.keyword`; empty if absent or not a string.
    std::optional<std::string> keyword{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Show> items{};

    friend bool operator==(const SearchResults&, const SearchResults&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<SearchResults>();

}  // namespace VanticRestKit
