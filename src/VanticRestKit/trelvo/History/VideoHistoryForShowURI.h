#pragma once

/// \file
/// `VideoHistoryForShowURI`: the route to the videos of a show that a user has watched.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the videos of a show that a user has watched; only done ones, or only others, where `markedAsDone` says.
struct VideoHistoryForShowURI {
    std::optional<bool> markedAsDone{};
    std::string uid{};
    SourceSystem source{};
    TrelvoSlug slug{};
    std::int64_t showId{};

    std::string path() const { return "v2/history/show/" + std::to_string(showId); }
    std::vector<URLQueryItem> queryItems() const {
        std::vector<URLQueryItem> items{{"UID", uid},
                                        {"slug", std::string(rawValue(slug))},
                                        {"source", std::string(rawValue(source))},
                                        {"raw", "1"}};
        if (markedAsDone) items.push_back({"done", *markedAsDone ? "1" : "0"});
        return items;
    }

    friend bool operator==(const VideoHistoryForShowURI&, const VideoHistoryForShowURI&) = default;
};

}  // namespace VanticRestKit
