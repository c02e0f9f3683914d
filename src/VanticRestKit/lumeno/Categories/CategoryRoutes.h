#pragma once

/// \file
/// The routes to the screens: `CategoryURI`, `ChannelURI` and `HomeURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for a category screen; the name goes into the path as it stands.
struct CategoryURI {
    /// The arguments, by label.
    struct Arguments {
        /// The category or channel, as it stands in paths.
        Required<std::string> for_;
    };
    /// `CategoryURI({.for_ = "arts"})`
    explicit CategoryURI(Arguments arguments) : category(std::move(arguments.for_).value()) {}

    /// The category, as it stands in paths.
    std::string category;

    /// The path below the base URL.
    std::string path() const { return "v2/category/" + category; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const CategoryURI&, const CategoryURI&) = default;
};

/// Asks for a channel screen; the name goes into the path as it stands.
struct ChannelURI {
    /// The arguments, by label.
    struct Arguments {
        /// The category or channel, as it stands in paths.
        Required<std::string> for_;
    };
    /// `ChannelURI({.for_ = "arts"})`
    explicit ChannelURI(Arguments arguments) : channel(std::move(arguments.for_).value()) {}

    /// The channel, as it stands in paths.
    std::string channel;

    /// The path below the base URL.
    std::string path() const { return "v2/channel/" + channel; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const ChannelURI&, const ChannelURI&) = default;
};

/// Asks for the home screen.
struct HomeURI {
    /// The path below the base URL.
    std::string path() const { return "v2/home"; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const HomeURI&, const HomeURI&) = default;
};

}  // namespace VanticRestKit
