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

/// The raw strings of `KAVROActiveAudiences`.
template <>
struct RawTexts<KAVROActiveAudiences> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<KAVROActiveAudiences> cases[] = {
        {KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids, "lumenoGenreFavourite180DVanticKids",
         "vantic_main_127"},
    };
};

/// A badge that a subprofile may have.
enum class KAVROActiveBadges { iOSUser };

/// The raw strings of `KAVROActiveBadges`.
template <>
struct RawTexts<KAVROActiveBadges> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<KAVROActiveBadges> cases[] = {
        {KAVROActiveBadges::iOSUser, "iOSUser", "7832"},
    };
};

/// The audiences and badges of a subprofile. Unknown ones are omitted. Only the user id is required.
struct KAVROSegmentsModel {
    /// Key `active_audiences`; an empty list if absent; unknown values are omitted.
    std::vector<KAVROActiveAudiences> activeAudiences{};
    /// Key `active_badges`; an empty list if absent; unknown values are omitted.
    std::vector<KAVROActiveBadges> activeBadges{};
    /// The id of the user. Key `user_id`; a required string.
    std::string userId{};

    friend bool operator==(const KAVROSegmentsModel&, const KAVROSegmentsModel&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<KAVROSegmentsModel>();

}  // namespace VanticRestKit
