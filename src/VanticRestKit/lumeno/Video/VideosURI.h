#pragma once

/// \file
/// `VideosURI`: the route to several videos.

#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for several videos by their house numbers, which go into the path as they stand, joined by commas. An
/// empty list is asked for too.
struct VRK_EXPORT VideosURI {
    std::vector<std::string> houseNumbers{};

    std::string path() const;

    friend bool operator==(const VideosURI&, const VideosURI&) = default;
};

}  // namespace VanticRestKit
