#pragma once

/// \file
/// The routes to the viewing history of a user.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>

#include <cstdint>
#include <optional>
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

/// Asks for the videos watched last: those done, or, where `markedAsDone` is false or empty, those not done.
struct RecentVideoHistoryURI {
    std::optional<bool> markedAsDone{};
    std::string uid{};
    SourceSystem source{};
    std::uint64_t limit{};
    TrelvoSlug slug{};

    std::string path() const { return "v2/history/video/recent"; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"slug", std::string(rawValue(slug))},
                {"source", std::string(rawValue(source))},
                {"done", markedAsDone.value_or(false) ? "1" : "0"},
                {"raw", "1"},
                {"limit", std::to_string(limit)}};
    }

    friend bool operator==(const RecentVideoHistoryURI&, const RecentVideoHistoryURI&) = default;
};

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

/// Deletes the viewing history of a user.
struct DeleteHistoryURI {
    std::string uid{};
    SourceSystem source{};
    std::string httpMethod = "DELETE";

    std::string path() const { return "v2/history"; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"source", std::string(rawValue(source))},
                {"slug", std::string(rawValue(TrelvoSlug::watchlist))}};
    }

    friend bool operator==(const DeleteHistoryURI&, const DeleteHistoryURI&) = default;
};

}  // namespace VanticRestKit
