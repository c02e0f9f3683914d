// A show: what it is about, its series with their episodes, extras and related shows.

#include "Pages.h"

namespace living_room {
namespace {

/// The tabs of the series, and which of them is shown: `wanted`, else the one that the service selects, else the first.
void addSeries(Value& values, const Show& show, std::string wanted) {
    if (wanted.empty() && show.selectedSeries) wanted = show.selectedSeries->selfHref.value_or("");
    if (wanted.empty() && !show.seriesList.empty()) wanted = show.seriesList.front().selfHref.value_or("");
    Value tabs;
    for (const Series& series : show.seriesList) {
        tabs.push_back(
            {{"title", series.title}, {"href", series.selfHref}, {"isShown", series.selfHref == wanted}});
    }
    values["shown"] = wanted;
    values["series"] = tabs;
}

Value showOf(const Show& show, const std::string& series, const Service& service) {
    Value values = heroOf(show, service);
    Value participants;
    for (const Participants& group : show.participants) {
        participants.push_back({{"title", group.title}, {"list", group.list}});
    }
    values["participants"] = participants;
    if (show.showId) values["showId"] = *show.showId;
    values["slug"] = CollectionItem::defaultShowSlug({.from = show.selfHref});
    addSeries(values, show, series);
    values["hasExtras"] = !show.videoExtras.empty();
    values["tiles"] = tilesOf(show.videoExtras, service);
    return values;
}

}  // namespace

Task<Answer> showPart(Visit visit) {
    const std::string slug = CollectionItem::defaultShowSlug({.from = visit.href()}).value_or("");
    auto resource = Endpoint::Show({.showSlugOrId = slug, .embedSeries = true}, visit.catalogue());
    const auto show = co_await load(std::move(resource), visit.options());
    if (!show) co_return failedPart(show.error());
    co_return partAnswer("show-part", showOf(*show, visit.field("series"), visit.service));
}

Task<Answer> episodesPart(Visit visit) {
    auto resource = Endpoint::Series({.usingHref = visit.href()}, visit.catalogue());
    const auto series = co_await load(std::move(resource), visit.options());
    if (!series) co_return failedPart(series.error());
    std::vector<HistoryData> watched;
    if (visit.user->account() && series->showId) {
        auto operation =
            visit.user->client->listVideosForShow({.showId = *series->showId, .markedAsDone = std::nullopt});
        // If the records cannot be loaded, the episodes are shown without their progress.
        if (auto records = co_await operation.value(visit.options())) watched = *std::move(records);
    }
    co_return tilesPart("episodes", tilesOf(series->episodes, watched, visit.service),
                        "There are no episodes at the moment.");
}

Task<Answer> relatedPart(Visit visit) {
    auto resource = Endpoint::RelatedShows({.showSlug = visit.field("slug")}, visit.catalogue());
    const auto related = co_await load(std::move(resource), visit.options());
    if (!related) co_return failedPart(related.error());
    co_return tilesPart("tiles", tilesOf(related->items, visit.service), "There are no similar shows.");
}

}  // namespace living_room
