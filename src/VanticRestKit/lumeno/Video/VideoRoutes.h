#pragma once

/// \file
/// The routes to videos: `VideoURI` and `VideosURI`.

#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for one video by its house number, which goes into the path as it stands.
struct VideoURI {
    /// The house number of the video.
    std::string houseNumber{};

    /// The path below the base URL.
    std::string path() const { return "v2/video/" + houseNumber; }

    friend bool operator==(const VideoURI&, const VideoURI&) = default;
};

/// Asks for several videos by their house numbers, which go into the path as they stand, joined by commas. An
/// empty list is asked for too.
struct VRK_EXPORT VideosURI {
    /// The house numbers of the videos, in the order wanted.
    std::vector<std::string> houseNumbers{};

    /// The path below the base URL.
    std::string path() const;

    friend bool operator==(const VideosURI&, const VideosURI&) = default;
};

}  // namespace VanticRestKit
