#pragma once

/// \file
/// `VideoList`: several videos.

#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <vector>

namespace VanticRestKit {

/// Several videos: the answer to `Endpoint::Videos`.
struct VideoList {
    /// In the service's order. One that does not decode empties the list.
    std::vector<Video> videos{};

    friend bool operator==(const VideoList&, const VideoList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<VideoList>();

}  // namespace VanticRestKit
