// Home: a featured item, then rows that load as they come into view.

#include "Pages.h"

#include <algorithm>

namespace living_room {

namespace {

bool isLive(const MixedCollection& row) {
    const auto items = row.items();
    const auto isLivestream = [](const CollectionItem& item) {
        return item.subtype() == LumenoSubtype::livestream;
    };
    return !items.empty() && std::all_of(items.begin(), items.end(), isLivestream);
}

std::string addressOf(const MixedCollection& row) {
    return isLive(row) ? "/live/row" : "/row?link=" + percentEncoded(row.href.value_or(""));
}

Value screenOf(const Category& home, const Service& service) {
    const auto featured = home.featuredCollection.items();
    Value::List rows{rowOf("Continue watching", "/continue")};
    if (featured.size() > 1)
        rows.push_back(rowOf(home.featuredCollection.title, addressOf(home.featuredCollection)));
    for (const MixedCollection& row : home.collections) rows.push_back(rowOf(row.title, addressOf(row)));
    Value::Object screen{{"rows", rows}};
    if (home.alertId) screen.emplace_back("notice", "/notice?id=" + percentEncoded(*home.alertId));
    if (!featured.empty()) {
        Value::Object hero = heroOf(featured.front(), service);
        hero.emplace_back("label", "Featured");
        hero.emplace_back("isFeatured", true);
        screen.emplace_back("featured", std::move(hero));
    }
    return screen;
}

Task<Answer> page(Visit visit) { co_return screenAnswer(visit, "home", "Home"); }

Task<Answer> screen(Visit visit) {
    const auto home = co_await load(Endpoint::Home(visit.catalogue()), visit.options());
    if (!home) co_return failedPart(home.error());
    co_return partAnswer("home-screen", screenOf(*home, visit.service));
}

Task<Answer> row(Visit visit) {
    auto resource =
        Endpoint::Resource<MixedCollection>({.withHref = visit.queried("link")}, visit.catalogue());
    const auto collection = co_await load(std::move(resource), visit.options());
    if (!collection) co_return failedPart(collection.error());
    co_return tilesAnswer("tiles", tilesOf(collection->items(), visit.service),
                          "Nothing is in this row today.");
}

Task<Answer> notice(Visit visit) {
    auto resource = Endpoint::ProductAlert({.alertId = visit.queried("id")}, visit.catalogue());
    const auto alert = co_await load(std::move(resource), visit.options());
    if (!alert) co_return partAnswer("", {}, "empty");  // a screen does without its notice
    const Value values = Value::Object{{"title", alert->title}, {"message", alert->message}};
    co_return partAnswer("notice", values);
}

constexpr Route routes[] = {
    {"GET", "/", page}, {"GET", "/home/screen", screen}, {"GET", "/row", row}, {"GET", "/notice", notice}};

}  // namespace

const std::span<const Route> homeRoutes(routes);

Answer screenAnswer(const Visit& visit, const char* screen, const char* title, Value::Object values) {
    visit.user->log().clear();
    // First, so that they are found before values of the screen with the same name.
    values.insert(values.begin(),
                  {{"screen", screen}, {"title", title}, {screen, true}, {"hasHls", !visit.hlsFile.empty()}});
    return pageAnswer("page", values);
}

Answer tilesAnswer(const char* name, Value::List tiles, const char* sentenceIfNone) {
    if (tiles.empty()) return emptyPart(sentenceIfNone);
    return partAnswer(name, Value::Object{{"tiles", std::move(tiles)}});
}

}  // namespace living_room
