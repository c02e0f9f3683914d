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

/// The videos that a user has watched.
struct VideoHistoryURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The id of the user.
        Required<std::string> uid;
        /// The calling source.
        Required<SourceSystem> source;
        /// The slug of the list.
        Required<TrelvoSlug> slug;
        /// The maximum number of recommendations.
        Required<std::uint64_t> limit;
    };
    /// Creates the route from its arguments.
    explicit VideoHistoryURI(Arguments arguments)
        : queryItems{{"UID", std::move(arguments.uid).value()},
                     {"slug", std::string(rawValue(arguments.slug.value()))},
                     {"source", std::string(rawValue(arguments.source.value()))},
                     {"raw", "1"},
                     {"limit", std::to_string(arguments.limit.value())}} {}

    /// The path below the base URL.
    std::string path = "v2/history/video";
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const VideoHistoryURI&, const VideoHistoryURI&) = default;
};

/// The videos watched most recently: those marked as done or, if `markedAsDone` is false or empty, the others.
struct RecentVideoHistoryURI {
    /// True for videos that are marked as done; false or empty for the others.
    std::optional<bool> markedAsDone{};
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The maximum number of records.
    std::uint64_t limit{};
    /// The slug of the list.
    TrelvoSlug slug{};

    /// The path below the base URL.
    std::string path() const { return "v2/history/video/recent"; }
    /// The query items, in order.
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

/// The videos of a show that a user has watched, optionally filtered by `markedAsDone`.
struct VideoHistoryForShowURI {
    /// True for videos that are marked as done, false for the others, empty for all.
    std::optional<bool> markedAsDone{};
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The slug of the list.
    TrelvoSlug slug{};
    /// The id of the show.
    std::int64_t showId{};

    /// The path below the base URL.
    std::string path() const { return "v2/history/show/" + std::to_string(showId); }
    /// The query items, in order.
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

/// The viewing position in a video of a show.
struct VideoProgressURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The id of the show.
    std::int64_t showId{};
    /// The house number of the video.
    std::string houseNumber{};

    /// The path below the base URL.
    std::string path() const { return "v2/history/show/" + std::to_string(showId) + "/video/" + houseNumber; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"source", std::string(rawValue(source))},
                {"slug", std::string(rawValue(TrelvoSlug::watchlist))},
                {"raw", "1"}};
    }

    friend bool operator==(const VideoProgressURI&, const VideoProgressURI&) = default;
};

/// Stores the viewing position in a video of a show. All values are sent in the path and the query.
struct UpdateVideoProgressURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The id of the show.
    std::int64_t showId{};
    /// The house number of the video.
    std::string houseNumber{};
    /// The viewing position, in seconds.
    std::int64_t progress{};
    /// Whether the video counts as watched.
    bool isDone{};
    /// The method of the request.
    std::string httpMethod = "PATCH";

    /// The path below the base URL.
    std::string path() const {
        return "v2/history/show/" + std::to_string(showId) + "/video/" + houseNumber + "/progress/" +
               std::to_string(progress);
    }
    /// The query items, in order.
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
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The method of the request.
    std::string httpMethod = "DELETE";

    /// The path below the base URL.
    std::string path() const { return "v2/history"; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"source", std::string(rawValue(source))},
                {"slug", std::string(rawValue(TrelvoSlug::watchlist))}};
    }

    friend bool operator==(const DeleteHistoryURI&, const DeleteHistoryURI&) = default;
};

}  // namespace VanticRestKit
