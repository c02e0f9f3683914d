#pragma once

/// \file
/// `Streams`: one stream for each technology of delivery.

#include <VanticRestKit/lumeno/Playlist/StreamInfo.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

/// One stream for each technology of delivery. HLS must be there; the others may be left out.
struct Streams {
    std::optional<StreamInfo> mpegdash{};
    std::optional<StreamInfo> fairplay{};
    StreamInfo hls{};

    friend bool operator==(const Streams&, const Streams&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Streams>();

}  // namespace VanticRestKit
