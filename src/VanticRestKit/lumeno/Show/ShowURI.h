#pragma once

/// \file
/// `ShowURI`: the route to one show.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

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

}  // namespace VanticRestKit
