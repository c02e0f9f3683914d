// A show: what it is about, its series with their episodes, extras, related shows, and the user's list.

#include "Parts.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>

#include <algorithm>

namespace living_room {

using namespace VanticRestKit;

namespace {

/// The slug in "/show/slug" and longer paths; empty if there is none.
std::string slugIn(const std::string& link) {
    return CollectionItem::defaultShowSlug({.from = link}).value_or("");
}

Html participantsMarkup(const std::vector<Participants>& participants) {
    std::vector<Html> parts;
    for (const Participants& group : participants) {
        parts.push_back(html(R"(<p><b>{}</b> {}</p>)", group.title, group.list));
    }
    return html("{}", parts);
}

/// The series as tabs, over the episodes of the one that is chosen.
Html seriesMarkup(const Show& show, const std::string& chosen) {
    std::vector<Html> tabs;
    std::string shown = chosen;
    if (shown.empty() && show.selectedSeries) shown = show.selectedSeries->selfHref.value_or("");
    if (shown.empty() && !show.seriesList.empty()) shown = show.seriesList.front().selfHref.value_or("");
    const std::string address = "/show/series?show=" + std::to_string(show.showId.value_or(0)) + "&link=";
    for (const Series& series : show.seriesList) {
        const std::string href = series.selfHref.value_or("");
        tabs.push_back(html(
            R"(<button type="button" role="tab" aria-selected="{}" aria-controls="episodes" data-load="{}">)"
            R"({}</button>)",
            href == shown ? "true" : "false", address + percentEncoded(href), series.title));
    }
    if (shown.empty()) return {};
    return html(
        R"(<div class="tabs" role="tablist" aria-label="Series">{}</div>)"
        R"(<div id="episodes" role="tabpanel" aria-label="Episodes" data-name="Episodes" data-src="{}")"
        R"( data-state="loading" aria-busy="true"></div>)",
        tabs, address + percentEncoded(shown));
}

Html extrasMarkup(const std::vector<Video>& extras, const Service& service) {
    if (extras.empty()) return {};
    return html(R"(<section class="row" data-row="Extras"><h2>Extras</h2>{}</section>)",
                tilesMarkup(tilesOf(extras, {}, service)));
}

Html showMarkup(const Show& show, const std::string& chosenSeries, const Service& service) {
    const ViewHero hero = heroOf(CollectionItem(show), service);
    const Html image = html(R"(<img class="backdrop" src="{}" alt=""><img class="still" src="{}" alt="">)",
                            hero.tile.picture, hero.tile.picture);
    const Html play = html(R"(<a class="button primary" href="{}" data-action="play">{}</a>)", hero.playLink,
                           hero.playTitle);
    const std::string id = std::to_string(show.showId.value_or(0));
    const std::string title = show.title.value_or("Untitled");
    const std::string related = "/show/related?slug=" + percentEncoded(slugIn(show.selfHref.value_or("")));
    return html(
        R"(<section class="hero" aria-label="About the show">{}<div class="words"><p class="kicker">{}</p>)"
        R"(<h1>{}</h1>{}<p class="about">{}</p>{}<p class="badges">{}</p><div class="buttons">{}{}</div></div>)"
        R"(</section>{}{}{})",
        when(!hero.tile.picture.empty(), image), hero.kicker, title,
        factsMarkup({hero.tile.classification, show.channelTitle.value_or(""),
                     show.broadcastInfo.value_or(""), hero.tile.duration}),
        show.description, participantsMarkup(show.participants), badgesMarkup(hero.tile.badges),
        when(!hero.playLink.empty(), play), block("/show/save?id=" + id, "button"),
        seriesMarkup(show, chosenSeries), extrasMarkup(show.videoExtras, service),
        rowBlock("Related", related));
}

Html episodeMarkup(const ViewTile& tile) {
    const Html image = html(R"(<img src="{}" alt="" loading="lazy">)", tile.picture);
    return html(
        R"(<a class="tile episode" href="{}" data-kind="{}"><span class="picture">{}{}</span><span class="words">)"
        R"(<span class="title">{}</span>{}<span class="about">{}</span><span class="badges">{}</span></span></a>)",
        tile.link, tile.kind, when(!tile.picture.empty(), image), progressMarkup(tile.progress),
        tile.subtitle, factsMarkup({tile.duration, tile.classification}), tile.description,
        badgesMarkup(tile.badges));
}

}  // namespace

Task<Answer> showPage(Visit visit) {
    const std::string link = visit.request.queried("link");
    const std::string series = visit.request.queried("series");
    const std::string address =
        "/show/screen?link=" + percentEncoded(link) + "&series=" + percentEncoded(series);
    co_return pageAnswer(pageAround(visit, "show", "Show", block(address, "hero")));
}

Task<Answer> showScreen(Visit visit) {
    const std::string slug = slugIn(visit.request.queried("link"));
    auto resource = Endpoint::Show({.showSlugOrId = slug, .embedSeries = true}, visit.catalogue());
    const auto show = co_await load(std::move(resource), visit.options());
    if (!show) co_return failedBlock(show.error());
    co_return blockAnswer(showMarkup(*show, visit.request.queried("series"), visit.service));
}

Task<Answer> seriesPart(Visit visit) {
    auto resource = Endpoint::Series({.usingHref = visit.request.queried("link")}, visit.catalogue());
    const auto series = co_await load(std::move(resource), visit.options());
    if (!series) co_return failedBlock(series.error());
    std::vector<HistoryData> watched;
    if (visit.user->account() && series->showId) {
        // Episodes are shown without their progress if that cannot be had.
        auto videos =
            visit.user->client().listVideosForShow({.showId = *series->showId, .markedAsDone = std::nullopt});
        if (auto records = co_await run(std::move(videos), visit.options())) watched = *std::move(records);
    }
    std::vector<Html> episodes;
    for (const ViewTile& tile : tilesOf(series->episodes, watched, visit.service)) {
        episodes.push_back(episodeMarkup(tile));
    }
    if (episodes.empty()) co_return blockAnswer(emptyMarkup("There are no episodes at the moment."), "empty");
    co_return blockAnswer(html(R"(<div class="episodes">{}</div>)", episodes));
}

Task<Answer> relatedRow(Visit visit) {
    auto resource = Endpoint::RelatedShows({.showSlug = visit.request.queried("slug")}, visit.catalogue());
    const auto related = co_await load(std::move(resource), visit.options());
    if (!related) co_return failedBlock(related.error());
    std::vector<ViewTile> tiles;
    for (const Show& show : related->items) tiles.push_back(tileOf(CollectionItem(show), visit.service));
    co_return tilesAnswer(tiles, "Nothing is like this show.");
}

}  // namespace living_room
