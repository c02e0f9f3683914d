#pragma once

/// \file
/// `RelatedShowsURI`: the route to shows that are like another.

#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the shows that are like another. An empty channel, or one without characters, is not sent.
struct RelatedShowsURI {
    std::string showSlug{};
    std::optional<std::string> channel{};

    std::string path() const { return "v2/related/show/" + showSlug; }
    std::vector<URLQueryItem> queryItems() const {
        if (!channel || channel->empty()) return {};
        return {{"channel", channel}};
    }

    friend bool operator==(const RelatedShowsURI&, const RelatedShowsURI&) = default;
};

}  // namespace VanticRestKit
