#pragma once

/// \file
/// The routes to the screens: `CategoryURI`, `ChannelURI` and `HomeURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The screen of a category. The name is inserted into the path unchanged.
struct CategoryURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The category or channel, as used in paths.
        Required<std::string> for_;
    };
    /// `CategoryURI({.for_ = "arts"})`
    explicit CategoryURI(Arguments arguments) : category(std::move(arguments.for_).value()) {}

    /// The category, as used in paths.
    std::string category;

    /// The path below the base URL.
    std::string path() const { return "v2/category/" + category; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const CategoryURI&, const CategoryURI&) = default;
};

/// The screen of a channel. The name is inserted into the path unchanged.
struct ChannelURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The category or channel, as used in paths.
        Required<std::string> for_;
    };
    /// `ChannelURI({.for_ = "arts"})`
    explicit ChannelURI(Arguments arguments) : channel(std::move(arguments.for_).value()) {}

    /// The channel, as used in paths.
    std::string channel;

    /// The path below the base URL.
    std::string path() const { return "v2/channel/" + channel; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const ChannelURI&, const ChannelURI&) = default;
};

/// The home screen.
struct HomeURI {
    /// The path below the base URL.
    std::string path() const { return "v2/home"; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const HomeURI&, const HomeURI&) = default;
};

}  // namespace VanticRestKit
