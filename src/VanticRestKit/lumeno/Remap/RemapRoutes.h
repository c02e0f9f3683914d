#pragma once

/// \file
/// `RemapURI`: the route that translates a path.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for a path in the API's own terms. The constructor adds the prefix, with one slash behind it whether or not
/// the path begins with one; a path that is set later goes out as it stands.
struct RemapURI {
    /// The arguments, by label.
    struct Arguments {
        /// The path to look up.
        Required<std::string> path;
        /// The query items, in order.
        Required<std::vector<URLQueryItem>> queryItems;
    };
    /// Made of its arguments.
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
