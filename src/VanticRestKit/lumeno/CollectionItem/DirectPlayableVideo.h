#pragma once

/// \file
/// `DirectPlayableVideo`: a compact pointer to a video that can be played at once.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A compact pointer to a video that can be played at once. Any JSON object decodes into one.
struct DirectPlayableVideo {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// A path below the API's version prefix.
    std::optional<std::string> href{};
    /// What a play button is to say.
    std::optional<std::string> playTitle{};

    friend bool operator==(const DirectPlayableVideo&, const DirectPlayableVideo&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<DirectPlayableVideo>();

}  // namespace VanticRestKit
