#pragma once

#include <string>
#include <variant>
#include <vector>

#include "catalogue/Catalogue.h"

namespace VanticRestKit::sample {

using Item = std::variant<const Show*, const Series*, const Video*>;

/// A titled list of shows, series and videos: a row of a screen, or a separate page.
struct Collection {
    std::string id;
    std::string title;
    std::string type;  // "standard", "movie" or "featured"
    std::string description;
    std::vector<Item> items;
};

/// The home screen, a category or a channel.
struct Screen {
    std::string href;  // "/home", "/category/drama", "/channel/vantic-one"
    std::string id;
    std::string title;
    std::string theme;
    Collection featured;
    std::vector<Collection> rows;
};

/// Null if there is none.
const Screen* screenAt(const std::string& href);
const Collection* collectionOf(const std::string& id);

}  // namespace VanticRestKit::sample
