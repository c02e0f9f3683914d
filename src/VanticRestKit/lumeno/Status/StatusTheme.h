#pragma once

/// \file
/// `StatusTheme`: how a badge is to be coloured.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// How a badge is to be coloured.
enum class StatusTheme { default_, live };

template <>
struct RawTexts<StatusTheme> {
    static constexpr RawCase<StatusTheme> cases[] = {
        {StatusTheme::default_, "default", "default"},
        {StatusTheme::live, "live", "live"},
    };
};

}  // namespace VanticRestKit
