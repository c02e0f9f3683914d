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

struct Choice {
    bool unknown = false;
    bool broken = false;
};

/// The elements inserted after the first element of a collection.
std::vector<JSON> elementsOf(Choice choice) {
    std::vector<JSON> elements;
    if (choice.unknown) elements.push_back(unknownEntity());
    if (choice.broken)
        elements.insert(elements.end(), {JSON(nullptr), JSON(17), JSON("more"), JSON::array()});
    return elements;
}

void breakEntities(JSON& items) {
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
}

void spoil(JSON& collection, Choice choice) {
    auto& items = collection["items"];
    if (choice.broken) breakEntities(items);
    JSON changed = JSON::array();
    if (choice.unknown) changed.push_back(unknownSeriesLike());
    for (std::size_t i = 0; i < items.size(); ++i) {
        changed.push_back(items[i]);
        if (i > 0) continue;
        for (const JSON& odd : elementsOf(choice)) changed.push_back(odd);
    }
    items = std::move(changed);
    if (!choice.unknown) return;
    collection["type"] = "carousel";
    if (collection.contains("_embedded")) collection["_embedded"]["highlightItem"] = unknownEntity();
}

void spoilCollections(JSON& value, Choice choice) {
    if (isCollection(value)) {
        spoil(value, choice);
    } else if (value.is_structured()) {
        for (auto& member : value) spoilCollections(member, choice);
    }
}

}  // namespace

void addOddities(JSON& value) { spoilCollections(value, {.unknown = true, .broken = true}); }

void addUnknownEntities(JSON& value) { spoilCollections(value, {.unknown = true}); }

void addBrokenElements(JSON& value) { spoilCollections(value, {.broken = true}); }

}  // namespace VanticRestKit::sample
