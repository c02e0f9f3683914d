#include "View.h"

#include <algorithm>

namespace living_room {
namespace {

Value badgesOf(const CollectionItem& item) {
    Value badges;
    const auto add = [&](const char* kind, const std::string& text) {
        badges.push_back({{"kind", kind}, {"text", text}});
    };
    if (const auto status = item.status()) {
        add(status->theme == StatusTheme::live ? "live" : "new", status->title);
    }
    const Video* const video = item.as<Video>();
    const std::string availability = item.availability().value_or("");
    if (video != nullptr && !video->playable) {
        add("unavailable", video->playableMessage.value_or("Not available"));
    } else if (availability.starts_with("Expires")) {
        add("expires", availability);
    }
    return badges;
}

Value factsOf(const CollectionItem& item) {
    Value facts;
    for (const auto& fact :
         {item.displayDuration(), item.classification(), item.channelTitle(), item.broadcastInfo()}) {
        if (fact && !fact->empty()) facts.push_back(*fact);
    }
    return facts;
}

std::string linkOf(const CollectionItem& item) {
    if (item.as<Series>() == nullptr) return screenLink(item.selfHref());
    return screenLink(item.showHref()) + "?series=" + item.selfHref().value_or("");
}

/// The title of a tile is that of the show; the subtitle distinguishes its episodes and series.
std::string subtitleOf(const CollectionItem& item) {
    if (item.subtype() == LumenoSubtype::livestream) return item.channelTitle().value_or("");
    if (const auto subtitle = item.displaySubtitle()) return *subtitle;
    const auto title = item.title();
    return title == item.showTitle() ? item.kickerTitle().value_or("") : title.value_or("");
}

Value programmeOf(const NowNextContainer& programme) {
    return {{"title", programme.displayTitle},
            {"subtitle", programme.displaySubtitle},
            {"start", programme.start},
            {"end", programme.end},
            {"length", programme.end - programme.start}};
}

}  // namespace

Value tileOf(const CollectionItem& item, const Service& service) {
    const Video* const video = item.as<Video>();
    return {{"kind", item.as<Show>() != nullptr ? "Show"
                     : video != nullptr         ? "Video"
                                                : "Series"},
            {"title", item.showTitle().value_or(item.title().value_or("Untitled"))},
            {"subtitle", subtitleOf(item)},
            {"description", video != nullptr ? video->videoDescription : item.description()},
            {"link", linkOf(item)},
            {"picture", fileLink(item.thumbnail(), service)},
            {"facts", factsOf(item)},
            {"badges", badgesOf(item)}};
}

Value heroOf(const CollectionItem& item, const Service& service) {
    Value hero = tileOf(item, service);
    hero["kicker"] = item.kickerTitle();
    if (const auto video = item.playableVideo()) {
        hero["playLink"] = screenLink(video->href);
        hero["playTitle"] = video->playTitle.value_or("Play");
    }
    return hero;
}

Value tilesOf(const std::vector<Video>& videos, const std::vector<HistoryData>& history,
              const Service& service) {
    Value tiles;
    for (const Video& video : videos) {
        Value tile = tileOf(video, service);
        const auto isOfVideo = [&](const HistoryData& record) { return record.key == video.houseNumber; };
        const auto record = std::find_if(history.begin(), history.end(), isOfVideo);
        const auto length = static_cast<std::int64_t>(video.duration.value_or(0));
        if (record != history.end() && length > 0) {
            const auto position = record->done ? length : std::min(record->progress, length);
            tile["progress"] = {{"position", position}, {"length", length}};
        }
        tiles.emplace_back(std::move(tile));
    }
    return tiles;
}

Value channelOf(const Video& live, const NowNext& schedule, const Service& service) {
    Value channel = tileOf(live, service);
    channel["channel"] = live.channelTitle;
    if (schedule.now) channel["now"] = programmeOf(*schedule.now);
    if (schedule.next) channel["next"] = programmeOf(*schedule.next);
    return channel;
}

Value playlistItemOf(const PlaylistItem& item, const Service& service) {
    const auto linkTo = [&](const std::optional<std::string>& address) {
        const std::string link = fileLink(address, service);
        return link.empty() ? address.value_or("") : link;
    };
    const StreamInfo& hls = item.streams.hls;
    const auto best = hls.url({.preferHighest = true});
    Value levels;
    std::string_view chosen;
    for (const auto level : StreamInfo::StreamLevel::highToLow()) {
        const auto address = hls.url({.for_ = level});
        if (!address) continue;
        const bool isChosen = chosen.empty() && address == best;
        if (isChosen) chosen = rawValue(level);
        levels.push_back({{"name", rawValue(level)}, {"address", linkTo(address)}, {"isChosen", isChosen}});
    }
    return {{"type", caseName(item.type)},
            {"text", item.warning.value_or(item.title.value_or(""))},
            {"isProtected", hls.protected_},
            {"hasDASH", item.streams.mpegdash.has_value()},
            {"hasFairPlay", item.streams.fairplay.has_value()},
            {"hasOthers", item.streams.mpegdash || item.streams.fairplay},
            {"count", levels.size()},
            {"levels", levels},
            {"chosen", chosen},
            {"stream", linkTo(best)},
            {"captions", linkTo(item.captionsSrcVtt)}};
}

std::string screenLink(const std::optional<std::string>& href) {
    const bool isScreen = href && (href->starts_with("/show/") || href->starts_with("/video/"));
    return isScreen ? *href : std::string();
}

std::string fileLink(const std::optional<std::string>& address, const Service& service) {
    std::string base = service.baseURL().absoluteString();
    if (base.ends_with('/')) base.pop_back();
    if (!address || !address->starts_with(base)) return {};
    const std::string path = address->substr(base.size());
    return isFilePath(path) ? path : "";
}

bool isFilePath(std::string_view path) {
    const bool isInFolder =
        path.starts_with("/pictures/") || path.starts_with("/hls/") || path.starts_with("/captions/");
    return isInFolder && isPlain(path, "/-_.") && path.find("..") == std::string_view::npos;
}

}  // namespace living_room
