#pragma once

/// \file
/// `CollectionURI`: the route to a collection.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// A collection, optionally with its highlight item embedded.
struct CollectionURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The id of the collection.
        Required<std::string> with;
        /// Whether the response embeds the item to highlight.
        Required<bool> embedHighlightItem;
    };
    /// `CollectionURI({.with = "12", .embedHighlightItem = true})`
    explicit CollectionURI(Arguments arguments)
        : collectionId(std::move(arguments.with).value()),
          embedHighlightItem(arguments.embedHighlightItem.value()) {}

    /// The id of the collection.
    std::string collectionId;
    /// Whether the response embeds the item to highlight.
    bool embedHighlightItem;

    /// The path below the base URL.
    std::string path() const { return "v2/collection/" + collectionId; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        if (!embedHighlightItem) return {};
        return {{"embed", "highlightItem"}};
    }

    friend bool operator==(const CollectionURI&, const CollectionURI&) = default;
};

}  // namespace VanticRestKit
