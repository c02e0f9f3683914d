#pragma once

/// \file
/// The routes to shows: `ShowURI`, `ShowsURI` and `ShowsIndexURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// One show with its highlight video, and optionally its series, embedded. If both a video and a series are selected,
/// the video takes precedence.
struct ShowURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The show's slug, or its id as text.
        Required<std::string> showSlugOrId;
        /// The id of the series to select.
        Required<std::optional<std::uint64_t>> series;
        /// The house number of the video to select.
        Required<std::optional<std::string>> videoHouseNumber;
        /// Whether the response embeds the selected series and the list of series.
        Required<bool> embedSeries;
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
    };
    /// Creates the route from its arguments.
    explicit ShowURI(Arguments arguments)
        : showSlugOrId(std::move(arguments.showSlugOrId).value()),
          series(arguments.series.value()),
          videoHouseNumber(std::move(arguments.videoHouseNumber).value()),
          channel(std::move(arguments.channel).value()),
          embedSeries(arguments.embedSeries.value()) {}

    /// The slug of the show, or its id as a string.
    std::string showSlugOrId;
    /// The series to select.
    std::optional<std::uint64_t> series;
    /// The video to select.
    std::optional<std::string> videoHouseNumber;
    /// The channel; sent unless it is empty or an empty string.
    std::optional<std::string> channel;
    /// Whether the response embeds the selected series and the list of series.
    bool embedSeries;

    /// The path below the base URL.
    std::string path() const {
        const std::string show = "v2/show/" + showSlugOrId;
        if (videoHouseNumber) return show + "/video/" + *videoHouseNumber;
        if (series) return show + "/series/" + std::to_string(*series);
        return show;
    }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        std::vector<URLQueryItem> items;
        if (channel && !channel->empty()) items.push_back({"channel", channel});
        items.push_back(
            {"embed", embedSeries ? "highlightVideo,selectedSeries,seriesList" : "highlightVideo"});
        return items;
    }

    friend bool operator==(const ShowURI&, const ShowURI&) = default;
};

/// Several shows by slug or id. These are joined by commas and inserted into the path unchanged. The list may be empty.
struct VRK_EXPORT ShowsURI {
    /// The slugs or ids of the shows, in the desired order.
    std::vector<std::string> showSlugsOrIds{};

    /// The path below the base URL.
    std::string path() const;

    friend bool operator==(const ShowsURI&, const ShowsURI&) = default;
};

/// The index of shows, of one channel or of all, optionally only those with closed captions. A channel that is empty or
/// an empty string is not sent.
struct ShowsIndexURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// Whether only shows with closed captions are listed.
        Required<bool> closedCaptionOnly;
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
    };
    /// `ShowsIndexURI({.closedCaptionOnly = true, .channel = std::nullopt})`
    explicit ShowsIndexURI(Arguments arguments)
        : channel(std::move(arguments.channel).value()),
          closedCaptionOnly(arguments.closedCaptionOnly.value()) {}

    /// The channel to filter by; empty for all.
    std::optional<std::string> channel;
    /// Whether only shows with closed captions are listed.
    bool closedCaptionOnly;

    /// The path below the base URL.
    std::string path() const { return closedCaptionOnly ? "v2/shows/cc" : "v2/shows"; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        if (!channel || channel->empty()) return {};
        return {{"channel", channel}};
    }

    friend bool operator==(const ShowsIndexURI&, const ShowsIndexURI&) = default;
};

}  // namespace VanticRestKit
