#pragma once

/// \file
/// `HrefURI`: a route for a complete path.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// A GET route whose path is `href`, unchanged, with the given query items and no body.
struct HrefURI {
    /// The arguments, by label.
    struct Arguments {
        /// The href, with its version prefix if it has one.
        Required<std::string> withHref;
        /// The query items, in order.
        Required<std::vector<URLQueryItem>> andQueryItems;
    };

    /// `HrefURI({.withHref = "v2/time", .andQueryItems = {{"a", "1"}}})`
    explicit HrefURI(Arguments arguments)
        : queryItems(std::move(arguments.andQueryItems).value()),
          href(std::move(arguments.withHref).value()) {}

    /// Appended to the query of the base URL.
    std::vector<URLQueryItem> queryItems;
    /// Relative to the base URL of the context. An empty string requests the base URL itself.
    std::string href;

    /// `href`, unchanged.
    const std::string& path() const& noexcept { return href; }

    friend bool operator==(const HrefURI&, const HrefURI&) = default;
};

}  // namespace VanticRestKit
