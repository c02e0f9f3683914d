// A show: what it is about, its series with their episodes, extras and related shows.

#include "Pages.h"

namespace living_room {

namespace {

/// The slug in "/show/slug" and longer paths; empty if there is none.
std::string slugIn(const std::string& link) {
    return CollectionItem::defaultShowSlug({.from = link}).value_or("");
}

void addSeries(Value::Object& screen, const Show& show, std::string shown) {
    if (shown.empty() && show.selectedSeries) shown = show.selectedSeries->selfHref.value_or("");
    if (shown.empty() && !show.seriesList.empty()) shown = show.seriesList.front().selfHref.value_or("");
    Value::List tabs;
    for (const Series& series : show.seriesList) {
        const std::string href = series.selfHref.value_or("");
        tabs.push_back(Value::Object{{"title", series.title},
                                     {"address", "/show/series?link=" + percentEncoded(href)},
                                     {"isShown", href == shown}});
    }
    screen.emplace_back("hasSeries", !shown.empty());
    screen.emplace_back("series", tabs);
    screen.emplace_back("shown", "/show/series?link=" + percentEncoded(shown));
}

Value screenOf(const Show& show, const std::string& series, const Service& service) {
    Value::Object screen = heroOf(CollectionItem(show), service);
    Value::List participants;
    for (const Participants& group : show.participants) {
        participants.push_back(Value::Object{{"title", group.title}, {"list", group.list}});
    }
    screen.emplace_back("label", "About the show");
    screen.emplace_back("participants", participants);
    if (show.showId) screen.emplace_back("saveAddress", "/save?id=" + std::to_string(*show.showId));
    addSeries(screen, show, series);
    screen.emplace_back("hasExtras", !show.videoExtras.empty());
    screen.emplace_back("tiles", tilesOf(show.videoExtras, {}, service));
    const std::string slug = slugIn(show.selfHref.value_or(""));
    screen.emplace_back("related", rowOf("Related", "/show/related?slug=" + percentEncoded(slug)));
    return screen;
}

Task<Answer> page(Visit visit) {
    const std::string address = "/show/screen?link=" + percentEncoded(visit.queried("link")) +
                                "&series=" + percentEncoded(visit.queried("series"));
    const Value::Object values{{"address", address}};
    co_return screenAnswer(visit, "show", "Show", values);
}

Task<Answer> screen(Visit visit) {
    const std::string slug = slugIn(visit.queried("link"));
    auto resource = Endpoint::Show({.showSlugOrId = slug, .embedSeries = true}, visit.catalogue());
    const auto show = co_await load(std::move(resource), visit.options());
    if (!show) co_return failedPart(show.error());
    co_return partAnswer("show-screen", screenOf(*show, visit.queried("series"), visit.service));
}

Task<Answer> episodes(Visit visit) {
    auto resource = Endpoint::Series({.usingHref = visit.queried("link")}, visit.catalogue());
    const auto series = co_await load(std::move(resource), visit.options());
    if (!series) co_return failedPart(series.error());
    std::vector<HistoryData> watched;
    if (visit.user->account() && series->showId) {
        // Episodes are shown without their progress if that cannot be had.
        auto videos =
            visit.user->client().listVideosForShow({.showId = *series->showId, .markedAsDone = std::nullopt});
        if (auto records = co_await run(std::move(videos), visit.options())) watched = *std::move(records);
    }
    co_return tilesAnswer("episodes", tilesOf(series->episodes, watched, visit.service),
                          "There are no episodes at the moment.");
}

Task<Answer> related(Visit visit) {
    auto resource = Endpoint::RelatedShows({.showSlug = visit.queried("slug")}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return failedPart(list.error());
    const std::vector<CollectionItem> shows(list->items.begin(), list->items.end());
    co_return tilesAnswer("tiles", tilesOf(shows, visit.service), "Nothing is like this show.");
}

constexpr Route routes[] = {{"GET", "/show", page},
                            {"GET", "/show/screen", screen},
                            {"GET", "/show/series", episodes},
                            {"GET", "/show/related", related}};

}  // namespace

const std::span<const Route> showRoutes(routes);

}  // namespace living_room
