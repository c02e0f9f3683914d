#pragma once

/// \file
/// `SourceSystem`: which system asks for user data.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// Which system asks for user data.
enum class SourceSystem { lumeno };

template <>
struct RawTexts<SourceSystem> {
    static constexpr RawCase<SourceSystem> cases[] = {
        {SourceSystem::lumeno, "lumeno", "lumeno"},
    };
};

}  // namespace VanticRestKit
