#include "server/Oddities.h"

#include <algorithm>

namespace VanticRestKit::sample {

namespace {

bool isCollection(const JSON& value) {
    return value.is_object() && value.contains("collectionLink") && value.contains("items");
}

JSON unknownSeriesLike() {
    return {{"_entity", "promo"},
            {"id", "promo-1"},
            {"title", "Win a boat"},
            {"_links", {{"self", {{"href", "/promo/1"}}}}}};
}

JSON unknownEntity() { return {{"_entity", "game"}, {"title", "Guess the harbour"}, {"levels", 3}}; }

void spoilShow(JSON& show) {
    show["id"] = "eleven";
    show["type"] = "hologram";
    show["theme"] = "midnight";
}

void spoil(JSON& collection) {
    auto& items = collection["items"];
    const auto is = [](const char* entity) {
        return [entity](const JSON& item) { return item.is_object() && item.value("_entity", "") == entity; };
    };
    const auto show = std::find_if(items.begin(), items.end(), is("show"));
    if (show != items.end()) spoilShow(*show);
    for (auto i = items.size(); i > 0; --i) {
        if (!is("video")(items[i - 1])) continue;
        items[i - 1].erase("_links");
        break;
    }
    JSON changed = JSON::array({unknownSeriesLike()});
    for (std::size_t i = 0; i < items.size(); ++i) {
        changed.push_back(items[i]);
        if (i > 0) continue;
        for (const JSON& odd : {unknownEntity(), JSON(nullptr), JSON(17), JSON("more"), JSON::array()}) {
            changed.push_back(odd);
        }
    }
    items = std::move(changed);
    collection["type"] = "carousel";
    if (collection.contains("_embedded")) collection["_embedded"]["highlightItem"] = unknownEntity();
}

}  // namespace

void addOddities(JSON& value) {
    if (isCollection(value)) {
        spoil(value);
    } else if (value.is_structured()) {
        for (auto& member : value) addOddities(member);
    }
}

}  // namespace VanticRestKit::sample
