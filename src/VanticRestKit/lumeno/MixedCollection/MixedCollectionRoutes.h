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
    struct Arguments {
        Required<std::string> with;
        Required<bool> embedHighlightItem;
    };
    /// `CollectionURI({.with = "12", .embedHighlightItem = true})`
    explicit CollectionURI(Arguments arguments)
        : collectionId(std::move(arguments.with).value()),
          embedHighlightItem(arguments.embedHighlightItem.value()) {}

    std::string collectionId;
    bool embedHighlightItem;

    std::string path() const { return "v2/collection/" + collectionId; }
    std::vector<URLQueryItem> queryItems() const {
        if (!embedHighlightItem) return {};
        return {{"embed", "highlightItem"}};
    }

    friend bool operator==(const CollectionURI&, const CollectionURI&) = default;
};

}  // namespace VanticRestKit
