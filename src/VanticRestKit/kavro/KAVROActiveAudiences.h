#pragma once

/// \file
/// `KAVROActiveAudiences`: an audience.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// An audience that a subprofile may belong to.
enum class KAVROActiveAudiences { lumenoGenreFavourite180DVanticKids };

template <>
struct RawTexts<KAVROActiveAudiences> {
    static constexpr RawCase<KAVROActiveAudiences> cases[] = {
        {KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids, "lumenoGenreFavourite180DVanticKids",
         "vantic_main_127"},
    };
};

}  // namespace VanticRestKit
