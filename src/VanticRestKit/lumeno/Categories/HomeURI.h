#pragma once

/// \file
/// `HomeURI`: the route to the home screen.

#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the home screen.
struct HomeURI {
    std::string path() const { return "v2/home"; }
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const HomeURI&, const HomeURI&) = default;
};

}  // namespace VanticRestKit
