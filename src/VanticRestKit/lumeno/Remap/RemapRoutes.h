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
    struct Arguments {
        Required<std::string> path;
        Required<std::vector<URLQueryItem>> queryItems;
    };
    explicit RemapURI(Arguments arguments)
        : path((arguments.path.value().starts_with('/') ? "v2/remap" : "v2/remap/") + arguments.path.value()),
          queryItems(std::move(arguments.queryItems).value()) {}

    std::string path;
    std::vector<URLQueryItem> queryItems;

    friend bool operator==(const RemapURI&, const RemapURI&) = default;
};

}  // namespace VanticRestKit
