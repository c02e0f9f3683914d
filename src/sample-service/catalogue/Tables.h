#pragma once

#include <string>
#include <vector>

namespace VanticRestKit::sample {

// Small tables of everything except shows, each in its own file in tables/. They are never destroyed.

struct Region {
    std::string id;
    std::string title;
    unsigned minutesLater;  // how much later the same programme is broadcast there
};

struct Channel {
    std::string id;
    std::string title;
    std::string description;
    std::string theme;
    bool closesAtNight;
};

struct Category {
    std::string id;
    std::string title;
    std::string description;
};

/// A row of the home screen. Items are named as "show:SLUG", "series:ID" or "video:HOUSENUMBER".
struct HomeRow {
    unsigned id;
    std::string title;
    std::string type;  // "standard", "movie" or "featured"
    std::string description;
    std::vector<std::string> items;
};

struct Alert {
    std::string id;
    std::string title;
    std::string message;
    std::string status;     // empty: none
    std::string linkTitle;  // empty: no link
    std::string linkHref;
    std::string shownAt;  // the slug of a show or the id of a screen; may be empty
};

/// A message to applications. An empty condition always matches.
struct Notice {
    unsigned id;
    std::string title;
    std::string message;
    unsigned count;
    double interval;
    std::string linkHref;
    std::string appId;
    std::string authStatus;
};

struct Avatar {
    std::string id;
    std::string description;
    std::string group;
};

const std::vector<Avatar>& avatars();
const std::vector<Region>& regions();
const std::vector<Channel>& channels();
const std::vector<Category>& categories();
/// The first is the featured one.
const std::vector<HomeRow>& homeRows();
const std::vector<Alert>& alerts();
const std::vector<Notice>& notices();

/// The row of a table with this id, or null.
template <class Row>
const Row* rowOf(const std::vector<Row>& table, const std::string& id) {
    for (const Row& row : table) {
        if (row.id == id) return &row;
    }
    return nullptr;
}

/// The id of the alert of a show or screen; an empty string if it has none.
std::string alertShownAt(const std::string& place);

}  // namespace VanticRestKit::sample
