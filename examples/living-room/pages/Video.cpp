// A video: what it plays, which stream the library chose and why, and the player, which resumes where the user stopped.

#include "Pages.h"

#include <algorithm>

namespace living_room {
namespace {

/// The player with the stream that the library chose; null if there is none to play.
Value playerOf(const Video& video, std::int64_t position, const Service& service) {
    using enum PlaylistItem::PlaylistType;
    if (!video.playable || !video.playlist) return {};
    const auto item =
        std::find_if(video.playlist->begin(), video.playlist->end(), [](const PlaylistItem& candidate) {
            return candidate.type == program || candidate.type == livestream || candidate.type == trailer;
        });
    if (item == video.playlist->end() || !item->streams.hls.url({.preferHighest = true})) return {};
    Value player = playlistItemOf(*item, service);
    player["position"] = position;
    player["isResumed"] = position > 0;
    // A livestream has no position to keep.
    if (video.showId && video.duration) player["show"] = *video.showId;
    player["house"] = video.houseNumber;
    return player;
}

Value videoOf(const Video& video, std::int64_t position, const Service& service) {
    Value values = tileOf(video, service);
    Value playlist;
    for (const PlaylistItem& item : video.playlist.value_or(std::vector<PlaylistItem>())) {
        playlist.emplace_back(playlistItemOf(item, service));
    }
    values["videoTitle"] = video.title;
    values["playlist"] = playlist;
    values["message"] = video.playableMessage;
    values["player"] = playerOf(video, position, service);
    values["nextLink"] = screenLink(video.nextEpisodeHref);
    values["nextTitle"] = video.nextEpisodeTitle;
    values["showLink"] = screenLink(video.showHref);
    return values;
}

}  // namespace

Task<Answer> videoPart(Visit visit) {
    auto resource = Endpoint::Video({.usingHref = visit.href()}, visit.catalogue());
    const auto video = co_await load(std::move(resource), visit.options());
    if (!video) co_return failedPart(video.error());
    std::int64_t position = 0;
    if (visit.user->account() && video->showId && video->houseNumber) {
        auto operation = visit.user->client->getVideoProgress(
            {.showId = *video->showId, .houseNumber = *video->houseNumber});
        // Without the record, the video plays from the start.
        const auto records = co_await operation.value(visit.options());
        if (records && !records->empty() && !records->front().done) position = records->front().progress;
    }
    co_return partAnswer("video-part", videoOf(*video, position, visit.service));
}

}  // namespace living_room
