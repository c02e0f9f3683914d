#pragma once

/// \file
/// The routes to videos: `VideoURI` and `VideosURI`.

#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// One video by its house number, which is inserted into the path unchanged.
struct VideoURI {
    /// The house number of the video.
    std::string houseNumber{};

    /// The path below the base URL.
    std::string path() const { return "v2/video/" + houseNumber; }

    friend bool operator==(const VideoURI&, const VideoURI&) = default;
};

/// Several videos by their house numbers. These are joined by commas and inserted into the path unchanged. The list may
/// be empty.
struct VRK_EXPORT VideosURI {
    /// The house numbers of the videos, in the desired order.
    std::vector<std::string> houseNumbers{};

    /// The path below the base URL.
    std::string path() const;

    friend bool operator==(const VideosURI&, const VideosURI&) = default;
};

}  // namespace VanticRestKit
