#pragma once

/// \file
/// `Programme`: what the builders of shows, series and videos are told.

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::Testing {

/// A programme as a whole, from which the documents of its show, its series and its videos are made. Its texts are
/// invented; ids, addresses, durations and dates follow from `id` and `code`, the same at every run.
struct Programme {
    /// Ids of series and videos begin with its digits.
    std::uint32_t id = 11;
    /// House numbers begin with it: the first episode of "HL" is "HL0101".
    std::string code = "HL";
    /// The title.
    std::string title = "Harbour Lights";
    /// Empty: made from the title, "harbour-lights".
    std::string slug{};
    /// What it is about.
    std::string description = "A harbour master, her three brothers and a lighthouse that is not for sale.";
    /// "vantic-one", "vantic-two", "vantic-plus", "vantic-kids" or "vantic-news".
    std::string channel = "vantic-one";
    /// "drama", "documentary", "comedy", "film", "lifestyle", "children" or "news".
    std::string category = "drama";
    /// For which ages it is.
    std::string classification = "M";
    /// The tags.
    std::vector<std::string> tags{"drama", "sea", "family"};
    /// The number of episodes of each series. Empty: a film, one video without series.
    std::vector<std::uint32_t> episodes{6};

    /// The slug, or one made of the title.
    std::string effectiveSlug() const;
};

namespace detail {

// Documents as the sample service sends them. `series` and `episode` count from 1; a film has one video, 0 and 0.
std::string showDocument(const Programme& programme);
std::string seriesDocument(const Programme& programme, std::uint32_t series);
std::string videoDocument(const Programme& programme, std::uint32_t series, std::uint32_t episode);

}  // namespace detail
}  // namespace VanticRestKit::Testing
