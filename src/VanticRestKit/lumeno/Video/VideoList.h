#pragma once

/// \file
/// `VideoList`: several videos.

#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <vector>

namespace VanticRestKit {

/// Several videos: the response to `Endpoint::Videos`.
struct VideoList {
    /// In the order of the service. An empty list if absent or if any element cannot be decoded.
    std::vector<Video> videos{};

    friend bool operator==(const VideoList&, const VideoList&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<VideoList>();

}  // namespace VanticRestKit
