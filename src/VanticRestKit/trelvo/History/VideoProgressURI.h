#pragma once

/// \file
/// `VideoProgressURI`: the route to how far a video was watched.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks how far a video of a show was watched.
struct VideoProgressURI {
    std::string uid{};
    SourceSystem source{};
    std::int64_t showId{};
    std::string houseNumber{};

    std::string path() const { return "v2/history/show/" + std::to_string(showId) + "/video/" + houseNumber; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"source", std::string(rawValue(source))},
                {"slug", std::string(rawValue(TrelvoSlug::watchlist))},
                {"raw", "1"}};
    }

    friend bool operator==(const VideoProgressURI&, const VideoProgressURI&) = default;
};

}  // namespace VanticRestKit
