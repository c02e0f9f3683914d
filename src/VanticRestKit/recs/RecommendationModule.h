#pragma once

/// \file
/// `RecommendationModule`: what is recommended in one module.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/recs/Recommendation.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// What is recommended in one module. One recommendation that does not decode fails it.
struct RecommendationModule {
    std::string moduleid{};
    std::string variantid{};
    std::string label{};
    std::vector<Recommendation> recommendations{};

    friend bool operator==(const RecommendationModule&, const RecommendationModule&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<RecommendationModule>();

}  // namespace VanticRestKit
