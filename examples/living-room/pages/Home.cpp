// Home: a featured item, then rows that load as they come into view. And search as you type: for each further letter,
// the browser cancels the request for the previous ones, which cancels its load.

#include "Pages.h"

#include <algorithm>

namespace living_room {
namespace {

constexpr std::size_t maxWordBytes = 400;

Value rowOf(const MixedCollection& row) {
    const auto items = row.items();
    const bool isLive = !items.empty() && std::all_of(items.begin(), items.end(), [](const auto& item) {
        return item.subtype() == LumenoSubtype::livestream;
    });
    return {{"title", row.title}, {"address", isLive ? "/part/live-row" : "/part" + row.href.value_or("")}};
}

Value homeOf(const Category& home, const Service& service) {
    const auto featured = home.featuredCollection.items();
    Value rows;
    if (featured.size() > 1) rows.push_back(rowOf(home.featuredCollection));
    for (const MixedCollection& row : home.collections) rows.push_back(rowOf(row));
    Value values{{"rows", rows}, {"alertId", home.alertId}};
    if (!featured.empty()) values["featured"] = heroOf(featured.front(), service);
    return values;
}

}  // namespace

Task<Answer> homePart(Visit visit) {
    const auto home = co_await load(Endpoint::Home(visit.catalogue()), visit.options());
    if (!home) co_return failedPart(home.error());
    co_return partAnswer("home-part", homeOf(*home, visit.service));
}

Task<Answer> rowPart(Visit visit) {
    auto resource = Endpoint::Resource<MixedCollection>({.withHref = visit.href()}, visit.catalogue());
    const auto row = co_await load(std::move(resource), visit.options());
    if (!row) co_return failedPart(row.error());
    co_return tilesPart("tiles", tilesOf(row->items(), visit.service), "There is nothing in this row today.");
}

Task<Answer> noticePart(Visit visit) {
    auto resource = Endpoint::ProductAlert({.alertId = visit.field("id")}, visit.catalogue());
    const auto alert = co_await load(std::move(resource), visit.options());
    // A screen works without its notice.
    if (!alert) co_return partAnswer("", {}, "empty");
    co_return partAnswer("notice", {{"title", alert->title}, {"message", alert->message}});
}

Task<Answer> searchPart(Visit visit) {
    const std::string word = visit.field("q");
    if (word.find_first_not_of(' ') == std::string::npos) {
        co_return emptyPart("Type what you are in the mood for.");
    }
    if (word.size() > maxWordBytes) co_return emptyPart("No show has such a long title.");
    auto resource = Endpoint::Search({.keyword = word}, visit.catalogue());
    const auto found = co_await load(std::move(resource), visit.options());
    if (!found) co_return failedPart(found.error());
    co_return tilesPart("grid", tilesOf(found->items, visit.service),
                        "Nothing was found for “" + word + "”.");
}

}  // namespace living_room
