#pragma once

/// \file
/// `UpdateVideoProgressURI`: the route that says how far a video was watched.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Says how far a video of a show was watched. All of it travels in path and query.
struct UpdateVideoProgressURI {
    std::string uid{};
    SourceSystem source{};
    std::int64_t showId{};
    std::string houseNumber{};
    std::int64_t progress{};
    bool isDone{};
    std::string httpMethod = "PATCH";

    std::string path() const {
        return "v2/history/show/" + std::to_string(showId) + "/video/" + houseNumber + "/progress/" +
               std::to_string(progress);
    }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"source", std::string(rawValue(source))},
                {"slug", std::string(rawValue(TrelvoSlug::watchlist))},
                {"raw", "1"},
                {"done", isDone ? "1" : "0"}};
    }

    friend bool operator==(const UpdateVideoProgressURI&, const UpdateVideoProgressURI&) = default;
};

}  // namespace VanticRestKit
