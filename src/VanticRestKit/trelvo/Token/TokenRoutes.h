#pragma once

/// \file
/// `TokenURI`: the route to the tokens of a user.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// The tokens of a user.
struct TokenURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};

    /// The path below the base URL.
    std::string path() const { return "v2/token"; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const TokenURI&, const TokenURI&) = default;
};

}  // namespace VanticRestKit
