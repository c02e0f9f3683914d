#include "catalogue/ScreenJSON.h"

#include <algorithm>

#include "catalogue/Addresses.h"
#include "catalogue/ShowJSON.h"
#include "catalogue/Tables.h"
#include "catalogue/VideoJSON.h"

namespace VanticRestKit::sample {

namespace {

JSON written(const Show* show) { return showJSON(*show); }
JSON written(const Series* series) { return seriesJSON(*series, false); }
JSON written(const Video* video) { return videoSummaryJSON(*video); }

JSON itemJSON(const Item& item) {
    return std::visit([](const auto* entity) { return written(entity); }, item);
}

bool isNumber(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

JSON bannerOf(const std::string& name, const std::string& title, const std::string& href) {
    return {{"large", pictureOf(name, "banner")},
            {"small", pictureOf(name, "banner-small")},
            {"altText", title},
            {"link", href}};
}

}  // namespace

JSON collectionJSON(const Collection& collection, bool withHighlightItem) {
    const std::string href = "/collection/" + collection.id;
    const std::string picture = "collection/" + collection.id;
    JSON json;
    // Like the real service, sends some ids as numbers and others as strings.
    if (isNumber(collection.id)) {
        json["id"] = std::stoul(collection.id);
    } else {
        json["id"] = collection.id;
    }
    json["title"] = collection.title;
    json["type"] = collection.type;
    if (!collection.description.empty()) json["description"] = collection.description;
    json["thumbnail"] = pictureOf(picture, "landscape");
    if (collection.type == "featured") json["banner"] = bannerOf(picture, collection.title, href);
    json["collectionLink"] = {
        {"id", collection.id}, {"title", "See all of " + collection.title}, {"href", href}};
    json["items"] = JSON::array();
    for (const Item& item : collection.items) json["items"].push_back(itemJSON(item));
    json["_links"] = {{"self", linkTo(href)}};
    const auto highlight =
        std::find_if(collection.items.begin(), collection.items.end(),
                     [](const Item& item) { return !std::holds_alternative<const Series*>(item); });
    if (withHighlightItem && highlight != collection.items.end()) {
        json["_embedded"] = {{"highlightItem", itemJSON(*highlight)}};
    }
    return json;
}

JSON screenJSON(const Screen& screen) {
    const std::string picture = screen.id == "home" ? "collection/1000" : screen.href.substr(1);
    JSON json;
    json["id"] = screen.id;
    json["title"] = screen.title;
    json["featuredImage"] = pictureOf(picture, "landscape");
    json["logoUrl"] = pictureOf(picture, "logo");
    json["banner"] = bannerOf(picture, screen.title, screen.href);
    json["theme"] = screen.theme;
    JSON rows = JSON::array();
    for (const Collection& row : screen.rows) rows.push_back(collectionJSON(row, false));
    json["_embedded"] = {{"featuredCollection", collectionJSON(screen.featured, true)},
                         {"collections", rows}};
    json["_links"] = {{"self", linkTo(screen.href)}};
    if (const auto alert = alertShownAt(screen.id); !alert.empty()) json["_links"]["alert"] = {{"id", alert}};
    return json;
}

}  // namespace VanticRestKit::sample
