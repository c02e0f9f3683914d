#pragma once

/// \file
/// `VideoHistoryURI`: the route to the videos that a user has watched.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for the videos that a user has watched.
struct VideoHistoryURI {
    struct Arguments {
        Required<std::string> uid;
        Required<SourceSystem> source;
        Required<TrelvoSlug> slug;
        /// How many at most.
        Required<std::uint64_t> limit;
    };
    explicit VideoHistoryURI(Arguments arguments)
        : queryItems{{"UID", std::move(arguments.uid).value()},
                     {"slug", std::string(rawValue(arguments.slug.value()))},
                     {"source", std::string(rawValue(arguments.source.value()))},
                     {"raw", "1"},
                     {"limit", std::to_string(arguments.limit.value())}} {}

    std::string path = "v2/history/video";
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const VideoHistoryURI&, const VideoHistoryURI&) = default;
};

}  // namespace VanticRestKit
