#pragma once

/// \file
/// `NavigationURI`: the route to a flat list of channels or categories.

#include <VanticRestKit/lumeno/Navigation/NavigationType.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the flat list of channels or of categories.
struct NavigationURI {
    NavigationType navigationType{};

    std::string path() const { return "v2/navigation/" + std::string(rawValue(navigationType)); }
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const NavigationURI&, const NavigationURI&) = default;
};

}  // namespace VanticRestKit
