#pragma once

/// \file
/// `Programme`: the input of the builders of shows, series and videos.

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::Testing {

/// A programme, from which the documents of its show, its series and its videos are built. The texts are fictional.
/// Ids, URLs, durations and dates are derived from `id` and `code`, so they are the same in every run.
struct Programme {
    /// The id of the show. The ids of series and videos begin with its digits.
    std::uint32_t id = 11;
    /// The prefix of house numbers: the first episode of "HL" is "HL0101".
    std::string code = "HL";
    /// The title.
    std::string title = "Harbour Lights";
    /// The slug; if empty, it is derived from the title: "harbour-lights".
    std::string slug{};
    /// The description.
    std::string description = "A harbour master, her three brothers and a lighthouse that is not for sale.";
    /// The channel: "vantic-one", "vantic-two", "vantic-plus", "vantic-kids" or "vantic-news".
    std::string channel = "vantic-one";
    /// The category: "drama", "documentary", "comedy", "film", "lifestyle", "children" or "news".
    std::string category = "drama";
    /// The age classification.
    std::string classification = "M";
    /// The tags.
    std::vector<std::string> tags{"drama", "sea", "family"};
    /// The number of episodes of each series. Empty for a film, which has one video and no series.
    std::vector<std::uint32_t> episodes{6};

    /// The slug, or the one derived from the title.
    std::string effectiveSlug() const;
};

namespace detail {

// Documents as the sample service sends them. `series` and `episode` start at 1; both are 0 for the video of a film.
std::string showDocument(const Programme& programme);
std::string seriesDocument(const Programme& programme, std::uint32_t series);
std::string videoDocument(const Programme& programme, std::uint32_t series, std::uint32_t episode);

}  // namespace detail
}  // namespace VanticRestKit::Testing
