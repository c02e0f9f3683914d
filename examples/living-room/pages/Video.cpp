// A video: what it plays, which stream the library chose and why, and the player, which resumes where the user stopped.

#include "Pages.h"

#include <algorithm>

namespace living_room {
namespace {

/// The player with the stream that the library chose. Nothing if there is none to play.
std::optional<Value::Object> playerOf(const Video& video, std::int64_t position, const Service& service) {
    using enum PlaylistItem::PlaylistType;
    if (!video.playable || !video.playlist) return std::nullopt;
    const auto item =
        std::find_if(video.playlist->begin(), video.playlist->end(), [](const PlaylistItem& candidate) {
            return candidate.type == program || candidate.type == livestream || candidate.type == trailer;
        });
    if (item == video.playlist->end() || !item->streams.hls.url({.preferHighest = true})) return std::nullopt;
    Value::Object player = playlistItemOf(*item, service);
    player.emplace_back("position", position);
    player.emplace_back("isResumed", position > 0);
    // A livestream has no position to keep.
    if (video.showId && video.duration) player.emplace_back("show", *video.showId);
    player.emplace_back("house", video.houseNumber);
    return player;
}

Value::Object videoOf(const Video& video, std::int64_t position, const Service& service) {
    Value::Object values = tileOf(video, service);
    Value::List playlist;
    for (const PlaylistItem& item : video.playlist.value_or(std::vector<PlaylistItem>())) {
        playlist.emplace_back(playlistItemOf(item, service));
    }
    values.emplace_back("videoTitle", video.title);
    values.emplace_back("playlist", playlist);
    values.emplace_back("message", video.playableMessage);
    if (auto player = playerOf(video, position, service)) values.emplace_back("player", *std::move(player));
    values.emplace_back("nextLink", screenLink(video.nextEpisodeHref));
    values.emplace_back("nextTitle", video.nextEpisodeTitle);
    values.emplace_back("showLink", screenLink(video.showHref));
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
