#pragma once

/// \file
/// `NavigationType`: what a flat list is of.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// What a flat list is of.
enum class NavigationType { channels, categories };

template <>
struct RawTexts<NavigationType> {
    static constexpr RawCase<NavigationType> cases[] = {
        {NavigationType::channels, "channels", "channels"},
        {NavigationType::categories, "categories", "categories"},
    };
};

}  // namespace VanticRestKit
