#pragma once

/// \file
/// `DirectPlayableVideo`: a compact reference to a video that can be played immediately.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A compact reference to a video that can be played immediately. Any JSON object can be decoded.
struct DirectPlayableVideo {
    /// Key `id`; empty if absent or not a string.
    std::optional<std::string> id{};
    /// The path of the video, relative to the API's version prefix.
    std::optional<std::string> href{};
    /// The text of a play button.
    std::optional<std::string> playTitle{};

    friend bool operator==(const DirectPlayableVideo&, const DirectPlayableVideo&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<DirectPlayableVideo>();

}  // namespace VanticRestKit
