#pragma once

/// \file
/// `VideoURI`: the route to one video.

#include <string>

namespace VanticRestKit {

/// Asks for one video by its house number, which goes into the path as it stands.
struct VideoURI {
    std::string houseNumber{};

    std::string path() const { return "v2/video/" + houseNumber; }

    friend bool operator==(const VideoURI&, const VideoURI&) = default;
};

}  // namespace VanticRestKit
