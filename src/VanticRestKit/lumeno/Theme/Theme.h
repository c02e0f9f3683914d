#pragma once

/// \file
/// `Theme`: how a screen is to be coloured.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// How a screen is to be coloured. An entity reads it from a text and says what an unknown text means.
enum class Theme { default_, light };

template <>
struct RawTexts<Theme> {
    static constexpr RawCase<Theme> cases[] = {
        {Theme::default_, "default", "default"},
        {Theme::light, "light", "light"},
    };
};

}  // namespace VanticRestKit
