#pragma once

/// \file
/// `RecommendationModule`: the recommendations of one module.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/recs/Recommendation.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// The recommendations of one module. Decoding fails if any recommendation cannot be decoded.
struct RecommendationModule {
    /// The id of the module. Key `moduleid`; a required string.
    std::string moduleid{};
    /// Key `variantid`; a required string.
    std::string variantid{};
    /// Key `label`; a required string.
    std::string label{};
    /// The recommendations, in order. Key `recommendations`; required; decoding fails if any element cannot be decoded.
    std::vector<Recommendation> recommendations{};

    friend bool operator==(const RecommendationModule&, const RecommendationModule&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<RecommendationModule>();

}  // namespace VanticRestKit
