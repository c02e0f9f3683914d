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

/// What a flat list is of.
enum class NavigationType { channels, categories };

/// The raw texts of `NavigationType`.
template <>
struct RawTexts<NavigationType> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<NavigationType> cases[] = {
        {NavigationType::channels, "channels", "channels"},
        {NavigationType::categories, "categories", "categories"},
    };
};

/// Asks for the flat list of channels or of categories.
struct NavigationURI {
    /// What the list holds.
    NavigationType navigationType{};

    /// The path below the base URL.
    std::string path() const { return "v2/navigation/" + std::string(rawValue(navigationType)); }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const NavigationURI&, const NavigationURI&) = default;
};

/// Asks for the main menu, with or for the given channels, one text that is sent as it stands.
struct NavigationMainMenuItemURI {
    /// The arguments, by label.
    struct Arguments {
        /// The channels, separated by commas.
        Required<std::string> channels;
    };
    /// Made of its arguments.
    explicit NavigationMainMenuItemURI(Arguments arguments)
        : queryItems{{"include", "personalize"}, {"channel", std::move(arguments.channels).value()}} {}

    /// May be set; it goes out as it stands.
    std::string path = "v2/navigation/mobile";
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const NavigationMainMenuItemURI&, const NavigationMainMenuItemURI&) = default;
};

/// Asks for the browse index.
struct BrowseURI {
    /// The path below the base URL.
    std::string path() const { return "v2/browse"; }

    friend bool operator==(const BrowseURI&, const BrowseURI&) = default;
};

}  // namespace VanticRestKit
