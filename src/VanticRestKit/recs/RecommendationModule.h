#pragma once

/// \file
/// `RecommendationModule`: what is recommended in one module.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/recs/Recommendation.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// What is recommended in one module. One recommendation that does not decode fails it.
struct RecommendationModule {
    /// The id of the module. Key `moduleid`; must be there and be a string.
    std::string moduleid{};
    /// Key `variantid`; must be there and be a string.
    std::string variantid{};
    /// Key `label`; must be there and be a string.
    std::string label{};
    /// What is recommended, in order. Key `recommendations`; must be there; one element that does not decode fails
    /// the document.
    std::vector<Recommendation> recommendations{};

    friend bool operator==(const RecommendationModule&, const RecommendationModule&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<RecommendationModule>();

}  // namespace VanticRestKit
