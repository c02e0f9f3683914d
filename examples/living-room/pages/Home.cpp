// Home: a featured item, then rows that load as they come into view.

#include "Parts.h"

#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkEndpoints.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>

#include <algorithm>

namespace living_room {

using namespace VanticRestKit;

namespace {

Html heroMarkup(const ViewHero& hero) {
    const Html image = html(R"(<img class="backdrop" src="{}" alt=""><img class="still" src="{}" alt="">)",
                            hero.tile.picture, hero.tile.picture);
    const Html play = html(R"(<a class="button primary" href="{}" data-action="play">{}</a>)", hero.playLink,
                           hero.playTitle);
    return html(
        R"(<section class="hero" aria-label="Featured">{}<div class="words"><p class="kicker">{}</p><h1>{}</h1>)"
        R"({}<p class="about">{}</p><p class="badges">{}</p><div class="buttons">{})"
        R"(<a class="button" href="{}" data-kind="{}">More about it</a></div></div></section>)",
        when(!hero.tile.picture.empty(), image), hero.kicker, hero.tile.title,
        factsMarkup({hero.tile.classification, hero.tile.duration}), hero.tile.description,
        badgesMarkup(hero.tile.badges), when(!hero.playLink.empty(), play), hero.tile.link, hero.tile.kind);
}

bool isLive(const MixedCollection& row) {
    const auto items = row.items();
    const auto isLivestream = [](const CollectionItem& item) {
        return item.subtype() == LumenoSubtype::livestream;
    };
    return !items.empty() && std::all_of(items.begin(), items.end(), isLivestream);
}

Html rowsMarkup(const Category& home) {
    std::vector<Html> rows;
    for (const MixedCollection& collection : home.collections) {
        const std::string link = "/row?link=" + percentEncoded(collection.href.value_or(""));
        rows.push_back(rowBlock(collection.title, isLive(collection) ? "/live/row" : link));
    }
    return html("{}", rows);
}

}  // namespace

Task<Answer> homePage(Visit visit) {
    co_return pageAnswer(pageAround(visit, "home", "Home", block("/home/screen", "hero")));
}

Task<Answer> homeScreen(Visit visit) {
    const auto home = co_await load(Endpoint::Home(visit.catalogue()), visit.options());
    if (!home) co_return failedBlock(home.error());

    const auto featured = home->featuredCollection.items();
    Html screen;
    if (home->alertId) screen += block("/notice?id=" + percentEncoded(*home->alertId), "text");
    if (!featured.empty()) screen += heroMarkup(heroOf(featured.front(), visit.service));
    screen += rowBlock("Continue watching", "/continue");
    if (featured.size() > 1) {
        const std::string link = home->featuredCollection.href.value_or("");
        screen += rowBlock(home->featuredCollection.title, "/row?link=" + percentEncoded(link));
    }
    screen += rowsMarkup(*home);
    co_return blockAnswer(screen);
}

Task<Answer> row(Visit visit) {
    const std::string link = visit.request.queried("link");
    auto resource = Endpoint::Resource<MixedCollection>({.withHref = link}, visit.catalogue());
    const auto collection = co_await load(std::move(resource), visit.options());
    if (!collection) co_return failedBlock(collection.error());
    co_return tilesAnswer(tilesOf(*collection, visit.service), "Nothing is in this row today.");
}

Task<Answer> notice(Visit visit) {
    auto resource = Endpoint::ProductAlert({.alertId = visit.request.queried("id")}, visit.catalogue());
    const auto alert = co_await load(std::move(resource), visit.options());
    if (!alert) co_return blockAnswer(Html(), "empty");  // a screen does without its notice
    co_return blockAnswer(
        html(R"(<p class="notice" role="note"><b>{}</b> {}</p>)", alert->title, alert->message));
}

}  // namespace living_room
