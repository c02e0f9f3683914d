#pragma once

/// \file
/// `CollectionURI`: the route to a collection.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// Asks for a collection, with its highlight item embedded if wanted.
struct CollectionURI {
    /// The arguments, by label.
    struct Arguments {
        /// The id of the collection.
        Required<std::string> with;
        /// Whether the answer embeds the item to highlight.
        Required<bool> embedHighlightItem;
    };
    /// `CollectionURI({.with = "12", .embedHighlightItem = true})`
    explicit CollectionURI(Arguments arguments)
        : collectionId(std::move(arguments.with).value()),
          embedHighlightItem(arguments.embedHighlightItem.value()) {}

    /// The id of the collection.
    std::string collectionId;
    /// Whether the answer embeds the item to highlight.
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
