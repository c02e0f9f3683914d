#pragma once

/// \file
/// `BrowseURI`: the route to the browse index.

#include <string>

namespace VanticRestKit {

/// Asks for the browse index.
struct BrowseURI {
    std::string path() const { return "v2/browse"; }

    friend bool operator==(const BrowseURI&, const BrowseURI&) = default;
};

}  // namespace VanticRestKit
