#pragma once

/// \file
/// `KAVROActiveBadges`: a badge.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// A badge that a subprofile may bear.
enum class KAVROActiveBadges { iOSUser };

template <>
struct RawTexts<KAVROActiveBadges> {
    static constexpr RawCase<KAVROActiveBadges> cases[] = {
        {KAVROActiveBadges::iOSUser, "iOSUser", "7832"},
    };
};

}  // namespace VanticRestKit
