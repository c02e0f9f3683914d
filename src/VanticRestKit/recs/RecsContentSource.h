#pragma once

/// \file
/// `RecsContentSource`: which catalogue a piece of content is of.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// Which catalogue a piece of content is of.
enum class RecsContentSource { lumeno, coremedia };

template <>
struct RawTexts<RecsContentSource> {
    static constexpr RawCase<RecsContentSource> cases[] = {
        {RecsContentSource::lumeno, "lumeno", "lumeno"},
        {RecsContentSource::coremedia, "coremedia", "coremedia"},
    };
};

}  // namespace VanticRestKit
