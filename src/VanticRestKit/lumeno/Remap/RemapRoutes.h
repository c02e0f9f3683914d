#pragma once

/// \file
/// `RemapURI`: the route that translates a path.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Translates a path. The constructor adds the prefix and a single slash, whether or not the path begins with one. A
/// path that is set later is sent unchanged.
struct RemapURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The path to look up.
        Required<std::string> path;
        /// The query items, in order.
        Required<std::vector<URLQueryItem>> queryItems;
    };
    /// Creates the route from its arguments.
    explicit RemapURI(Arguments arguments)
        : path((arguments.path.value().starts_with('/') ? "v2/remap" : "v2/remap/") + arguments.path.value()),
          queryItems(std::move(arguments.queryItems).value()) {}

    /// The path below the base URL.
    std::string path;
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const RemapURI&, const RemapURI&) = default;
};

}  // namespace VanticRestKit
