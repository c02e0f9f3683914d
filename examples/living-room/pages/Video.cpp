// A video: what it plays, which stream the library chose and why, and the player.

#include "Parts.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

#include <algorithm>

namespace living_room {

using namespace VanticRestKit;

namespace {

bool isProgramme(const ViewPlaylistItem& item) {
    return item.type == "program" || item.type == "livestream" || item.type == "trailer";
}

Html levelsMarkup(const ViewPlaylistItem& item) {
    std::vector<Html> levels;
    for (const ViewLevel& level : item.levels) {
        levels.push_back(
            html(R"(<button type="button" data-quality="{}" data-stream="{}" aria-pressed="{}">{}</button>)",
                 level.name, level.address, level.name == item.chosen ? "true" : "false", level.name));
    }
    return html(
        R"(<section class="card" aria-label="Quality"><h2>Quality</h2><div class="chips">{}</div>)"
        R"(<p data-chosen="{}">The library chose <b>HLS {}</b>: the best of {} levels that have an address. )"
        R"(Browsers play no protected stream of this service, so the others of it are left out.</p></section>)",
        levels, item.chosen, item.chosen, item.levels.size());
}

Html playlistMarkup(const std::vector<ViewPlaylistItem>& playlist) {
    std::vector<Html> items;
    for (const ViewPlaylistItem& item : playlist) {
        const Html captions = html(R"( Captions: {}.)", item.captions);
        items.push_back(html(R"(<li data-playlist="{}"><b>{}</b> {}. {}.{}</li>)", item.type, item.type,
                             item.title, item.technologies, when(!item.captions.empty(), captions)));
    }
    return html(
        R"(<section class="card" aria-label="What it plays"><h2>What it plays</h2><ul>{}</ul></section>)",
        items);
}

std::string addressOf(const ViewPlaylistItem& item) {
    const auto isChosen = [&](const ViewLevel& level) { return level.name == item.chosen; };
    const auto chosen = std::find_if(item.levels.begin(), item.levels.end(), isChosen);
    return chosen == item.levels.end() ? "" : chosen->address;
}

/// The player, starting at `position`, or the sentence why there is none.
Html playerMarkup(const Video& video, const ViewPlaylistItem* programme, std::int64_t position) {
    if (!video.playable || programme == nullptr || programme->levels.empty()) {
        return html(R"(<p class="failed">{}</p>)",
                    video.playableMessage.value_or("This cannot be played at the moment."));
    }
    const Html track =
        html(R"(<track kind="captions" label="English" srclang="en" src="{}">)", programme->captions);
    const std::string showId = video.showId ? std::to_string(*video.showId) : "";
    const bool isLive = video.subtype == LumenoSubtype::livestream;
    const Html resume =
        html(R"(<button type="button" class="button primary" data-action="play">Resume at {}</button>)"
             R"(<button type="button" class="button" data-action="restart">From the start</button>)",
             clockText(position));
    const Html play =
        html(R"(<button type="button" class="button primary" data-action="play">Play</button>)");
    return html(
        R"(<video id="player" controls playsinline preload="metadata" aria-label="{}" data-stream="{}")"
        R"( data-resume="{}" data-show="{}" data-video="{}">{}</video>)"
        R"(<div class="buttons">{}<span class="facts" role="status" data-player-state></span></div>)",
        video.title.value_or("Video"), addressOf(*programme), position, isLive ? "" : showId,
        video.houseNumber, when(programme->captions.starts_with("/stream/"), track),
        position > 0 ? resume : play);
}

Html videoMarkup(const Video& video, std::int64_t position, const Service& service) {
    std::vector<ViewPlaylistItem> playlist;
    for (const PlaylistItem& item : video.playlist.value_or(std::vector<PlaylistItem>())) {
        playlist.push_back(playlistItemOf(item, service));
    }
    const auto found = std::find_if(playlist.begin(), playlist.end(), isProgramme);
    const ViewPlaylistItem* const programme = found == playlist.end() ? nullptr : &*found;
    const ViewTile tile = tileOf(video, service);
    const Html show = html(R"(<a class="button" href="{}" data-kind="Show">All about {}</a>)",
                           pageOf(video.showHref.value_or("")), video.showTitle);
    const Html next = html(R"(<a class="button" href="{}" data-kind="Video">Next: {}</a>)",
                           pageOf(video.nextEpisodeHref.value_or("")), video.nextEpisodeTitle);
    return html(
        R"(<div class="watch"><div>{}<div class="words"><p class="kicker">{}</p><h1>{}</h1>{}<p class="about">{}</p>)"
        R"(<p class="badges">{}</p><div class="buttons">{}{}</div></div></div><div class="side">{}{}</div></div>)",
        playerMarkup(video, programme, position), tile.title, video.title,
        factsMarkup({tile.classification, tile.duration, video.channelTitle.value_or("")}), tile.description,
        badgesMarkup(tile.badges), when(video.nextEpisodeHref.has_value(), next),
        when(video.showHref.has_value(), show), programme != nullptr ? levelsMarkup(*programme) : Html(),
        playlistMarkup(playlist));
}

}  // namespace

Task<Answer> videoPage(Visit visit) {
    const std::string address = "/video/screen?link=" + percentEncoded(visit.request.queried("link"));
    co_return pageAnswer(pageAround(visit, "video", "Video", block(address, "hero")));
}

Task<Answer> videoScreen(Visit visit) {
    auto resource = Endpoint::Video({.usingHref = visit.request.queried("link")}, visit.catalogue());
    const auto video = co_await load(std::move(resource), visit.options());
    if (!video) co_return failedBlock(video.error());
    std::int64_t position = 0;
    if (visit.user->account() && video->showId && video->houseNumber) {
        // Without an answer it plays from the start.
        auto progress = visit.user->client().getVideoProgress(
            {.showId = *video->showId, .houseNumber = *video->houseNumber});
        const auto records = co_await run(std::move(progress), visit.options());
        if (records && !records->empty() && !records->front().done) position = records->front().progress;
    }
    co_return blockAnswer(videoMarkup(*video, position, visit.service));
}

}  // namespace living_room
