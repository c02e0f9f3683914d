#pragma once

/// \file
/// `ChannelURI`: the route to a channel screen.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for a channel screen; the name goes into the path as it stands.
struct ChannelURI {
    struct Arguments {
        Required<std::string> for_;
    };
    /// `ChannelURI({.for_ = "arts"})`
    explicit ChannelURI(Arguments arguments) : channel(std::move(arguments.for_).value()) {}

    std::string channel;

    std::string path() const { return "v2/channel/" + channel; }
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const ChannelURI&, const ChannelURI&) = default;
};

}  // namespace VanticRestKit
