#include <algorithm>

#include "catalogue/Addresses.h"
#include "catalogue/Tables.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

JSON imageOf(const std::string& name, const std::string& title) {
    return {{"id", "logo"}, {"url", pictureOf(name, "logo")}, {"accessibilityText", "The mark of " + title}};
}

JSON itemOf(const std::string& kind, const std::string& id, const std::string& title,
            const std::string& about) {
    const std::string name = kind + "/" + id;
    JSON json{{"id", id}, {"title", title}, {"accessibilityText", title + ". " + about}};
    json["logoUrl"] = pictureOf(name, "logo");
    json["logoUrlWide"] = pictureOf(name, "banner-small");
    json["path"] = "/" + name;
    json["images"] = JSON::array({imageOf(name, title)});
    json["images"][0]["type"] = "logo";
    json["images"][0]["width"] = 480;
    json["images"][0]["height"] = 480;
    json["_links"] = {{"self", linkTo("/" + name)}};
    return json;
}

JSON channelItems() {
    JSON items = JSON::array();
    for (const Channel& channel : channels()) {
        items.push_back(itemOf("channel", channel.id, channel.title, channel.description));
    }
    return items;
}

JSON categoryItems() {
    JSON items = JSON::array();
    for (const Category& category : categories()) {
        items.push_back(itemOf("category", category.id, category.title, category.description));
    }
    return items;
}

Reply navigation(const std::string& type, JSON items) {
    return answered({{"items", std::move(items)}, {"_links", {{"self", linkTo("/navigation/" + type)}}}});
}

JSON menuItem(const std::string& id, const std::string& title, const std::string& path) {
    return {{"id", id}, {"title", title}, {"accessibilityText", "Go to " + title}, {"path", path}};
}

/// The channels of the menu: those that the request names, or all if it names no known one.
JSON menuChannels(const std::vector<std::string>& wanted) {
    JSON named = JSON::array(), all = JSON::array();
    for (const Channel& channel : channels()) {
        JSON item = menuItem(channel.id, channel.title, "/channel/" + channel.id);
        item["logoUrl"] = pictureOf("channel/" + channel.id, "logo");
        item["images"] = JSON::array({imageOf("channel/" + channel.id, channel.title)});
        if (std::find(wanted.begin(), wanted.end(), channel.id) != wanted.end()) named.push_back(item);
        all.push_back(std::move(item));
    }
    return named.empty() ? all : named;
}

Reply mainMenu(const Request& request, const Captures&) {
    JSON channelsItem = menuItem("channels", "Channels", "/navigation/channels");
    channelsItem["items"] = menuChannels(request.queryValues("channel"));
    JSON categoriesItem = menuItem("categories", "Categories", "/navigation/categories");
    categoriesItem["items"] = JSON::array();
    for (const Category& category : categories()) {
        categoriesItem["items"].push_back(menuItem(category.id, category.title, "/category/" + category.id));
    }
    JSON items =
        JSON::array({menuItem("home", "Home", "/home"), channelsItem, categoriesItem,
                     menuItem("live", "Live", "/livestreams"), menuItem("search", "Search", "/search")});
    if (request.queryValue("include") == "personalize")
        items.push_back(menuItem("mylist", "My List", "/mylist"));
    return answered({{"items", std::move(items)}});
}

Reply browse(const Request&, const Captures&) {
    JSON channelGroup{{"id", "channels"}, {"title", "Channels"}, {"items", channelItems()}};
    channelGroup["accessibilityText"] = "Browse by channel";
    JSON categoryGroup{{"id", "categories"}, {"title", "Categories"}, {"items", categoryItems()}};
    return answered({{"_links", {{"self", linkTo("/browse")}}},
                     {"_embedded", {{"items", JSON::array({channelGroup, categoryGroup})}}}});
}

}  // namespace

std::vector<Route> navigationRoutes() {
    return {
        {"GET", "v2/navigation/channels",
         [](const Request&, const Captures&) { return navigation("channels", channelItems()); }},
        {"GET", "v2/navigation/categories",
         [](const Request&, const Captures&) { return navigation("categories", categoryItems()); }},
        {"GET", "v2/navigation/mobile", mainMenu},
        {"GET", "v2/browse", browse},
    };
}

}  // namespace VanticRestKit::sample
