#pragma once

/// \file
/// `KAVROSegmentsModel`: the audiences and badges of a subprofile.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// An audience that a subprofile may belong to.
enum class KAVROActiveAudiences { lumenoGenreFavourite180DVanticKids };

/// The raw texts of `KAVROActiveAudiences`.
template <>
struct RawTexts<KAVROActiveAudiences> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<KAVROActiveAudiences> cases[] = {
        {KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids, "lumenoGenreFavourite180DVanticKids",
         "vantic_main_127"},
    };
};

/// A badge that a subprofile may bear.
enum class KAVROActiveBadges { iOSUser };

/// The raw texts of `KAVROActiveBadges`.
template <>
struct RawTexts<KAVROActiveBadges> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<KAVROActiveBadges> cases[] = {
        {KAVROActiveBadges::iOSUser, "iOSUser", "7832"},
    };
};

/// The audiences and badges of a subprofile. Ones that are not known are left out; only the user id can fail it.
struct KAVROSegmentsModel {
    /// Key `active_audiences`; an empty list if absent; values that are not known are left out.
    std::vector<KAVROActiveAudiences> activeAudiences{};
    /// Key `active_badges`; an empty list if absent; values that are not known are left out.
    std::vector<KAVROActiveBadges> activeBadges{};
    /// The id of the user. Key `user_id`; must be there and be a string.
    std::string userId{};

    friend bool operator==(const KAVROSegmentsModel&, const KAVROSegmentsModel&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<KAVROSegmentsModel>();

}  // namespace VanticRestKit
