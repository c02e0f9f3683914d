#pragma once

/// \file
/// The routes to the menus: `NavigationURI`, `NavigationMainMenuItemURI` and `BrowseURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The content of a flat list.
enum class NavigationType { channels, categories };

/// The raw strings of `NavigationType`.
template <>
struct RawTexts<NavigationType> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<NavigationType> cases[] = {
        {NavigationType::channels, "channels", "channels"},
        {NavigationType::categories, "categories", "categories"},
    };
};

/// The flat list of channels or categories.
struct NavigationURI {
    /// Whether the list contains channels or categories.
    NavigationType navigationType{};

    /// The path below the base URL.
    std::string path() const { return "v2/navigation/" + std::string(rawValue(navigationType)); }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const NavigationURI&, const NavigationURI&) = default;
};

/// The main menu for the given channels, a string that is sent unchanged.
struct NavigationMainMenuItemURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The channels, separated by commas.
        Required<std::string> channels;
    };
    /// Creates the route from its arguments.
    explicit NavigationMainMenuItemURI(Arguments arguments)
        : queryItems{{"include", "personalize"}, {"channel", std::move(arguments.channels).value()}} {}

    /// May be changed; sent unchanged.
    std::string path = "v2/navigation/mobile";
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const NavigationMainMenuItemURI&, const NavigationMainMenuItemURI&) = default;
};

/// The browse index.
struct BrowseURI {
    /// The path below the base URL.
    std::string path() const { return "v2/browse"; }

    friend bool operator==(const BrowseURI&, const BrowseURI&) = default;
};

}  // namespace VanticRestKit
