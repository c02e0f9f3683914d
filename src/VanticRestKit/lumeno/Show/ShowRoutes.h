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

/// Asks for one show, with its highlight video and, if wanted, its series embedded. A video wins over a series.
struct ShowURI {
    struct Arguments {
        Required<std::string> showSlugOrId;
        Required<std::optional<std::uint64_t>> series;
        Required<std::optional<std::string>> videoHouseNumber;
        Required<bool> embedSeries;
        Required<std::optional<std::string>> channel;
    };
    explicit ShowURI(Arguments arguments)
        : showSlugOrId(std::move(arguments.showSlugOrId).value()),
          series(arguments.series.value()),
          videoHouseNumber(std::move(arguments.videoHouseNumber).value()),
          channel(std::move(arguments.channel).value()),
          embedSeries(arguments.embedSeries.value()) {}

    /// The slug of the show, or its id as a text.
    std::string showSlugOrId;
    /// The series to select.
    std::optional<std::uint64_t> series;
    /// The video to select.
    std::optional<std::string> videoHouseNumber;
    /// Sent where it has characters.
    std::optional<std::string> channel;
    bool embedSeries;

    std::string path() const {
        const std::string show = "v2/show/" + showSlugOrId;
        if (videoHouseNumber) return show + "/video/" + *videoHouseNumber;
        if (series) return show + "/series/" + std::to_string(*series);
        return show;
    }
    std::vector<URLQueryItem> queryItems() const {
        std::vector<URLQueryItem> items;
        if (channel && !channel->empty()) items.push_back({"channel", channel});
        items.push_back(
            {"embed", embedSeries ? "highlightVideo,selectedSeries,seriesList" : "highlightVideo"});
        return items;
    }

    friend bool operator==(const ShowURI&, const ShowURI&) = default;
};

/// Asks for several shows by slug or id, which go into the path as they stand, joined by commas. An empty list is
/// asked for too.
struct VRK_EXPORT ShowsURI {
    std::vector<std::string> showSlugsOrIds{};

    std::string path() const;

    friend bool operator==(const ShowsURI&, const ShowsURI&) = default;
};

/// Asks for the shows index, of one channel or of all, with closed captions or without regard to them. An empty
/// channel, or one without characters, is not sent.
struct ShowsIndexURI {
    struct Arguments {
        Required<bool> closedCaptionOnly;
        Required<std::optional<std::string>> channel;
    };
    /// `ShowsIndexURI({.closedCaptionOnly = true, .channel = std::nullopt})`
    explicit ShowsIndexURI(Arguments arguments)
        : channel(std::move(arguments.channel).value()),
          closedCaptionOnly(arguments.closedCaptionOnly.value()) {}

    std::optional<std::string> channel;
    bool closedCaptionOnly;

    std::string path() const { return closedCaptionOnly ? "v2/shows/cc" : "v2/shows"; }
    std::vector<URLQueryItem> queryItems() const {
        if (!channel || channel->empty()) return {};
        return {{"channel", channel}};
    }

    friend bool operator==(const ShowsIndexURI&, const ShowsIndexURI&) = default;
};

}  // namespace VanticRestKit
