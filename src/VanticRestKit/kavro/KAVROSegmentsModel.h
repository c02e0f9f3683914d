#pragma once

/// \file
/// `KAVROSegmentsModel`: the audiences and badges of a subprofile.

#include <VanticRestKit/kavro/KAVROActiveAudiences.h>
#include <VanticRestKit/kavro/KAVROActiveBadges.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// The audiences and badges of a subprofile. Ones that are not known are left out; only the user id can fail it.
struct KAVROSegmentsModel {
    std::vector<KAVROActiveAudiences> activeAudiences{};
    std::vector<KAVROActiveBadges> activeBadges{};
    std::string userId{};

    friend bool operator==(const KAVROSegmentsModel&, const KAVROSegmentsModel&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<KAVROSegmentsModel>();

}  // namespace VanticRestKit
