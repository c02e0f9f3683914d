// A video: what it plays, which stream the library chose and why, and the player, which goes on where the user stopped.

#include "Pages.h"

#include <algorithm>

namespace living_room {

namespace {

bool isProgramme(const PlaylistItem& item) {
    using enum PlaylistItem::PlaylistType;
    return item.type == program || item.type == livestream || item.type == trailer;
}

const char* whyHls(const Streams& streams) {
    const bool hasOthers = streams.mpegdash || streams.fairplay;
    return hasOthers ? "It is HLS because the other streams are protected." : "There is no stream but HLS.";
}

/// The player, or a sentence why there is none, and what the library chose for it.
void addProgramme(Value::Object& screen, const Video& video, const PlaylistItem* item, std::int64_t position,
                  const Service& service) {
    if (!video.playable || item == nullptr || !item->streams.hls.url({.preferHighest = true})) {
        const char* const sentence = "This cannot be played at the moment.";
        screen.emplace_back("unplayable", video.playableMessage.value_or(sentence));
        return;
    }
    Value::Object programme = playlistItemOf(*item, service);
    programme.emplace_back("why", whyHls(item->streams));
    Value::Object player = programme;
    player.emplace_back("position", position);
    // Livestreams have no position that could be kept.
    if (video.showId && video.duration) player.emplace_back("show", *video.showId);
    player.emplace_back("house", video.houseNumber);
    if (position > 0) player.emplace_back("resumeAt", clockText(position));
    screen.emplace_back("player", std::move(player));
    screen.emplace_back("programme", std::move(programme));
}

Value screenOf(const Video& video, std::int64_t position, const Service& service) {
    const auto playlist = video.playlist.value_or(std::vector<PlaylistItem>());
    Value::Object screen = tileOf(CollectionItem(video), service);
    screen.emplace_back("videoTitle", video.title);
    Value::List items;
    for (const PlaylistItem& item : playlist) items.emplace_back(playlistItemOf(item, service));
    screen.emplace_back("playlist", items);
    const auto found = std::find_if(playlist.begin(), playlist.end(), isProgramme);
    addProgramme(screen, video, found == playlist.end() ? nullptr : &*found, position, service);
    if (video.nextEpisodeHref) {
        screen.emplace_back("next", Value::Object{{"link", pageOf(*video.nextEpisodeHref)},
                                                  {"title", video.nextEpisodeTitle}});
    }
    if (video.showHref) screen.emplace_back("showLink", pageOf(*video.showHref));
    return screen;
}

Task<Answer> page(Visit visit) {
    const Value::Object values{{"address", "/video/screen?link=" + percentEncoded(visit.queried("link"))}};
    co_return screenAnswer(visit, "video", "Video", values);
}

Task<Answer> screen(Visit visit) {
    auto resource = Endpoint::Video({.usingHref = visit.queried("link")}, visit.catalogue());
    const auto video = co_await load(std::move(resource), visit.options());
    if (!video) co_return failedPart(video.error());
    std::int64_t position = 0;
    if (visit.user->account() && video->showId && video->houseNumber) {
        // Without an answer it plays from the start.
        auto progress = visit.user->client().getVideoProgress(
            {.showId = *video->showId, .houseNumber = *video->houseNumber});
        const auto records = co_await run(std::move(progress), visit.options());
        if (records && !records->empty() && !records->front().done) position = records->front().progress;
    }
    co_return partAnswer("video-screen", screenOf(*video, position, visit.service));
}

constexpr Route routes[] = {{"GET", "/video", page}, {"GET", "/video/screen", screen}};

}  // namespace

const std::span<const Route> videoRoutes(routes);

}  // namespace living_room
