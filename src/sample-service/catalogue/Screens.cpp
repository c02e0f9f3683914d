#include "catalogue/Screens.h"

#include "catalogue/Tables.h"

namespace VanticRestKit::sample {

namespace {

Item itemOf(const std::string& name) {
    const auto colon = name.find(':');
    const std::string kind = name.substr(0, colon);
    const std::string id = name.substr(colon + 1);
    if (kind == "show") return catalogue().show(id);
    if (kind == "series") return catalogue().series(id);
    return catalogue().video(id);
}

Collection collectionOf(const HomeRow& row) {
    Collection collection{std::to_string(row.id), row.title, row.type, row.description, {}};
    for (const auto& name : row.items) collection.items.push_back(itemOf(name));
    return collection;
}

Screen home() {
    Screen screen{"/home", "home", "Home", "default", {}, {}};
    for (const HomeRow& row : homeRows()) {
        if (&row == &homeRows().front()) {
            screen.featured = collectionOf(row);
        } else {
            screen.rows.push_back(collectionOf(row));
        }
    }
    return screen;
}

/// A screen for shows with something in common: three featured shows, all shows, and first episodes.
Screen screenOf(const std::string& kind, const std::string& id, const std::string& title,
                const std::string& theme, const std::vector<const Show*>& shows) {
    Screen screen{"/" + kind + "/" + id, id, title, theme, {}, {}};
    screen.featured = {id + "-featured", "The best of " + title, "featured", "Three to begin with.", {}};
    Collection all{id + "-all", "All of " + title, "standard", "", {}};
    Collection starts{id + "-starts", "From the beginning", "standard", "First episodes.", {}};
    Collection series{id + "-series", "Whole series", "standard", "", {}};
    Collection films{id + "-films", "Films", "movie", "", {}};
    for (const Show* show : shows) {
        if (screen.featured.items.size() < 3) screen.featured.items.push_back(show);
        all.items.push_back(show);
        if (show->type == "feature") films.items.push_back(show);
        if (show->type == "episode") starts.items.push_back(catalogue().videosOf(*show).front());
        for (const Series* one : catalogue().seriesOf(*show)) series.items.push_back(one);
    }
    for (Collection* row : {&all, &starts, &series, &films}) {
        if (!row->items.empty()) screen.rows.push_back(std::move(*row));
    }
    return screen;
}

template <class Belongs>
std::vector<const Show*> showsThat(Belongs belongs) {
    std::vector<const Show*> found;
    for (const Show* show : catalogue().programmes()) {
        if (belongs(*show)) found.push_back(show);
    }
    return found;
}

std::vector<Screen> madeScreens() {
    std::vector<Screen> all{home()};
    for (const Category& category : categories()) {
        const auto shows = showsThat([&](const Show& show) { return show.category == category.id; });
        all.push_back(screenOf("category", category.id, category.title, "default", shows));
    }
    for (const Channel& channel : channels()) {
        const auto shows = showsThat([&](const Show& show) { return show.channel == channel.id; });
        all.push_back(screenOf("channel", channel.id, channel.title, channel.theme, shows));
    }
    return all;
}

const std::vector<Screen>& screens() {
    static const auto& made = *new std::vector<Screen>(madeScreens());
    return made;
}

}  // namespace

const Screen* screenAt(const std::string& href) {
    for (const Screen& screen : screens()) {
        if (screen.href == href) return &screen;
    }
    return nullptr;
}

const Collection* collectionOf(const std::string& id) {
    for (const Screen& screen : screens()) {
        if (screen.featured.id == id) return &screen.featured;
        for (const Collection& row : screen.rows) {
            if (row.id == id) return &row;
        }
    }
    return nullptr;
}

}  // namespace VanticRestKit::sample
