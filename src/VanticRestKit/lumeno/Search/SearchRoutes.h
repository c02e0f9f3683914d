#pragma once

/// \file
/// The routes that find shows: `SearchURI` and `RelatedShowsURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Searches for a keyword, which is always sent. The channel is sent if there is one, even if it is an empty string.
struct SearchURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// What to search for.
        Required<std::string> for_;
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
    };
    /// `SearchURI({.for_ = "river", .channel = std::nullopt})`
    explicit SearchURI(Arguments arguments)
        : keyword(std::move(arguments.for_).value()), channel(std::move(arguments.channel).value()) {}

    /// What to search for.
    std::string keyword;
    /// The channel to filter by; empty for all.
    std::optional<std::string> channel;

    /// The path below the base URL.
    std::string path() const { return "v2/search"; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        std::vector<URLQueryItem> items{{"keyword", keyword}};
        if (channel) items.push_back({"channel", channel});
        return items;
    }

    friend bool operator==(const SearchURI&, const SearchURI&) = default;
};

/// Shows that are similar to a show. A channel that is empty or an empty string is not sent.
struct RelatedShowsURI {
    /// The slug of the show.
    std::string showSlug{};
    /// The channel to filter by; empty for all.
    std::optional<std::string> channel{};

    /// The path below the base URL.
    std::string path() const { return "v2/related/show/" + showSlug; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        if (!channel || channel->empty()) return {};
        return {{"channel", channel}};
    }

    friend bool operator==(const RelatedShowsURI&, const RelatedShowsURI&) = default;
};

}  // namespace VanticRestKit
