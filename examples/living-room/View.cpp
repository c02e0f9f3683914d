#include "View.h"

#include "Html.h"

#include <VanticRestKit/platform/json/RawText.h>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace living_room {

using namespace VanticRestKit;

namespace {

bool isPlainPath(std::string_view path) {
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               std::string_view("/-_.").find(c) != std::string_view::npos;
    };
    return path.find("..") == std::string_view::npos && std::all_of(path.begin(), path.end(), isPlain);
}

bool isBelow(const std::string& path, std::initializer_list<std::string_view> folders) {
    const auto holds = [&](std::string_view folder) { return path.starts_with(folder); };
    return isPlainPath(path) && std::any_of(folders.begin(), folders.end(), holds);
}

std::vector<ViewBadge> badgesOf(const CollectionItem& item) {
    std::vector<ViewBadge> badges;
    if (const auto status = item.status()) {
        badges.push_back({status->theme == StatusTheme::live ? "live" : "new", status->title});
    }
    const Video* const video = item.as<Video>();
    if (video != nullptr && !video->playable) {
        badges.push_back({"unavailable", video->playableMessage.value_or("Not available")});
    } else if (const auto availability = item.availability();
               availability && availability->starts_with("Expires")) {
        badges.push_back({"expires", *availability});
    }
    return badges;
}

/// The title of a series names its show first, and so does that of an episode.
void setTitles(ViewTile& tile, const CollectionItem& item) {
    const std::string title = item.title().value_or("Untitled");
    const std::string show = item.showTitle().value_or(title);
    tile.title = show;
    tile.subtitle = item.displaySubtitle().value_or(show == title ? item.kickerTitle().value_or("") : title);
    if (item.subtype() == LumenoSubtype::livestream) tile.subtitle = item.channelTitle().value_or("");
}

std::string linkOf(const CollectionItem& item) {
    if (item.as<Series>() == nullptr) return pageOf(item.selfHref().value_or(""));
    return pageOf(item.showHref().value_or("")) + "&series=" + percentEncoded(item.selfHref().value_or(""));
}

}  // namespace

bool isPicturePath(const std::string& path) { return isBelow(path, {"pictures/"}); }
bool isStreamPath(const std::string& path) { return isBelow(path, {"hls/", "captions/"}); }

std::string pictureLink(const std::optional<std::string>& address, const Service& service) {
    const auto path = service.pathOf(address);
    return path && isPicturePath(*path) ? "/picture?at=" + percentEncoded(*path) : "";
}

std::string streamLink(const std::string& address, const Service& service) {
    const auto path = service.pathOf(address);
    return path && isStreamPath(*path) ? "/stream/" + percentEncoded(*path) : address;
}

std::string pageOf(const std::string& href) {
    return (href.starts_with("/video/") ? "/video?link=" : "/show?link=") + percentEncoded(href);
}

std::string clockText(std::int64_t seconds) {
    char text[40];
    const auto hours = static_cast<long long>(seconds / 3600);
    const auto minutes = static_cast<long long>(seconds / 60 % 60);
    const auto rest = static_cast<long long>(seconds % 60);
    if (hours > 0) {
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", hours, minutes, rest);
    } else {
        std::snprintf(text, sizeof text, "%lld:%02lld", minutes, rest);
    }
    return text;
}

ViewTile tileOf(const CollectionItem& item, const Service& service) {
    ViewTile tile;
    tile.kind = item.as<Show>() != nullptr ? "Show" : item.as<Series>() != nullptr ? "Series" : "Video";
    setTitles(tile, item);
    const Video* const video = item.as<Video>();
    tile.description =
        video != nullptr ? video->videoDescription.value_or("") : item.description().value_or("");
    tile.link = linkOf(item);
    tile.picture = pictureLink(item.thumbnail(), service);
    tile.duration = item.displayDuration().value_or("");
    tile.classification = item.classification().value_or("");
    tile.badges = badgesOf(item);
    return tile;
}

ViewTile tileOf(const Video& video, const Service& service) { return tileOf(CollectionItem(video), service); }

ViewHero heroOf(const CollectionItem& item, const Service& service) {
    ViewHero hero{.tile = tileOf(item, service), .kicker = item.kickerTitle().value_or("")};
    if (const auto video = item.playableVideo(); video && video->href) {
        hero.playLink = pageOf(*video->href);
        hero.playTitle = video->playTitle.value_or("Play");
    }
    return hero;
}

std::vector<ViewTile> tilesOf(const MixedCollection& row, const Service& service) {
    std::vector<ViewTile> tiles;
    for (const CollectionItem& item : row.items()) tiles.push_back(tileOf(item, service));
    return tiles;
}

std::vector<ViewTile> tilesOf(const std::vector<Video>& videos, const std::vector<HistoryData>& history,
                              const Service& service) {
    std::vector<ViewTile> tiles;
    for (const Video& video : videos) {
        ViewTile tile = tileOf(video, service);
        const auto isOfVideo = [&](const HistoryData& record) { return record.key == video.houseNumber; };
        const auto record = std::find_if(history.begin(), history.end(), isOfVideo);
        const auto length = static_cast<std::int64_t>(video.duration.value_or(0));
        if (record != history.end() && length > 0) {
            tile.progress = ViewProgress{record->done ? length : std::min(record->progress, length), length};
        }
        tiles.push_back(std::move(tile));
    }
    return tiles;
}

ViewPlaylistItem playlistItemOf(const PlaylistItem& item, const Service& service) {
    const StreamInfo& hls = item.streams.hls;
    ViewPlaylistItem view{.type = std::string(caseName(item.type)),
                          .title = item.warning.value_or(item.title.value_or("")),
                          .technologies = hls.protected_ ? "HLS (protected)" : "HLS"};
    if (item.streams.mpegdash) view.technologies += ", MPEG-DASH";
    if (item.streams.fairplay) view.technologies += ", FairPlay";
    const auto best = hls.url({.preferHighest = true});
    for (const auto level : StreamInfo::StreamLevel::highToLow()) {
        const auto address = hls.url({.for_ = level});
        if (!address) continue;
        view.levels.push_back({std::string(rawValue(level)), streamLink(*address, service)});
        if (view.chosen.empty() && address == best) view.chosen = view.levels.back().name;
    }
    if (item.captionsSrcVtt) view.captions = streamLink(*item.captionsSrcVtt, service);
    return view;
}

}  // namespace living_room
