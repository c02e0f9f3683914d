#pragma once

/// \file
/// `ShowsIndexURI`: the route to the shows index.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

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
