#pragma once

/// \file
/// `NavigationMainMenuItemURI`: the route to the main menu.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for the main menu, with or for the given channels, one text that is sent as it stands.
struct NavigationMainMenuItemURI {
    struct Arguments {
        Required<std::string> channels;
    };
    explicit NavigationMainMenuItemURI(Arguments arguments)
        : queryItems{{"include", "personalize"}, {"channel", std::move(arguments.channels).value()}} {}

    /// May be set; it goes out as it stands.
    std::string path = "v2/navigation/mobile";
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const NavigationMainMenuItemURI&, const NavigationMainMenuItemURI&) = default;
};

}  // namespace VanticRestKit
