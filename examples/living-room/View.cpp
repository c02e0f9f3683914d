#include "View.h"

#include <algorithm>
#include <cstdio>

namespace living_room {

namespace {

/// Whether `path` is below `folder`, without steps upwards and escapes that could lead out of it.
bool isBelow(std::string_view folder, const std::string& path) {
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               std::string_view("/-_.").find(c) != std::string_view::npos;
    };
    return path.starts_with(folder) && path.find("..") == std::string::npos &&
           std::all_of(path.begin(), path.end(), isPlain);
}

Value::List badgesOf(const CollectionItem& item) {
    Value::List badges;
    const auto add = [&](const char* kind, const std::string& text) {
        badges.push_back(Value::Object{{"kind", kind}, {"text", text}});
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

Value::List factsOf(const CollectionItem& item) {
    const auto show = item.as<Show>();
    Value::List facts;
    for (const auto& fact : {item.displayDuration(), item.classification(), item.channelTitle(),
                             show != nullptr ? show->broadcastInfo : std::nullopt}) {
        if (fact && !fact->empty()) facts.emplace_back(*fact);
    }
    return facts;
}

std::string linkOf(const CollectionItem& item) {
    if (item.as<Series>() == nullptr) return pageOf(item.selfHref().value_or(""));
    return pageOf(item.showHref().value_or("")) + "&series=" + percentEncoded(item.selfHref().value_or(""));
}

/// An episode and a series are known by their show first.
std::string subtitleOf(const CollectionItem& item) {
    if (item.subtype() == LumenoSubtype::livestream) return item.channelTitle().value_or("");
    if (const auto subtitle = item.displaySubtitle()) return *subtitle;
    const auto title = item.title();
    return title == item.showTitle() ? item.kickerTitle().value_or("") : title.value_or("");
}

Value programmeOf(const NowNextContainer& programme) {
    return Value::Object{{"title", programme.displayTitle},
                         {"subtitle", programme.displaySubtitle},
                         {"start", programme.start},
                         {"end", programme.end},
                         {"length", programme.end - programme.start}};
}

}  // namespace

bool isPicturePath(const std::string& path) { return isBelow("pictures/", path); }
bool isStreamPath(const std::string& path) { return isBelow("hls/", path) || isBelow("captions/", path); }

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
    std::snprintf(text, sizeof text, hours > 0 ? "%lld:%02lld:%02lld" : "%.0lld%lld:%02lld", hours, minutes,
                  rest);
    return text;
}

Value::Object tileOf(const CollectionItem& item, const Service& service) {
    const Video* const video = item.as<Video>();
    const Value::List facts = factsOf(item);
    return {{"kind", item.as<Show>() != nullptr ? "Show"
                     : video != nullptr         ? "Video"
                                                : "Series"},
            {"title", item.showTitle().value_or(item.title().value_or("Untitled"))},
            {"subtitle", subtitleOf(item)},
            {"description", video != nullptr ? video->videoDescription : item.description()},
            {"link", linkOf(item)},
            {"picture", pictureLink(item.thumbnail(), service)},
            {"hasFacts", !facts.empty()},
            {"facts", facts},
            {"badges", badgesOf(item)}};
}

Value::Object heroOf(const CollectionItem& item, const Service& service) {
    Value::Object hero = tileOf(item, service);
    hero.emplace_back("kicker", item.kickerTitle());
    if (const auto video = item.playableVideo(); video && video->href) {
        hero.emplace_back("playLink", pageOf(*video->href));
        hero.emplace_back("playTitle", video->playTitle.value_or("Play"));
    }
    return hero;
}

Value::List tilesOf(const std::vector<CollectionItem>& items, const Service& service) {
    Value::List tiles;
    for (const CollectionItem& item : items) tiles.emplace_back(tileOf(item, service));
    return tiles;
}

Value::List tilesOf(const std::vector<Video>& videos, const std::vector<HistoryData>& history,
                    const Service& service) {
    Value::List tiles;
    for (const Video& video : videos) {
        Value::Object tile = tileOf(CollectionItem(video), service);
        const auto isOfVideo = [&](const HistoryData& record) { return record.key == video.houseNumber; };
        const auto record = std::find_if(history.begin(), history.end(), isOfVideo);
        const auto length = static_cast<std::int64_t>(video.duration.value_or(0));
        if (record != history.end() && length > 0) {
            const auto position = record->done ? length : std::min(record->progress, length);
            tile.emplace_back("progress", Value::Object{{"position", position}, {"length", length}});
        }
        tiles.emplace_back(std::move(tile));
    }
    return tiles;
}

Value channelOf(const Video& live, const NowNext& schedule, const Service& service) {
    Value::Object channel = tileOf(CollectionItem(live), service);
    channel.emplace_back("channel", live.channelTitle);
    if (schedule.now) channel.emplace_back("now", programmeOf(*schedule.now));
    if (schedule.next) channel.emplace_back("next", programmeOf(*schedule.next));
    return channel;
}

Value::Object playlistItemOf(const PlaylistItem& item, const Service& service) {
    const StreamInfo& hls = item.streams.hls;
    const auto best = hls.url({.preferHighest = true});
    std::string technologies = hls.protected_ ? "HLS (protected)" : "HLS";
    if (item.streams.mpegdash) technologies += ", MPEG-DASH";
    if (item.streams.fairplay) technologies += ", FairPlay";
    Value::List levels;
    std::string chosen;
    for (const auto level : StreamInfo::StreamLevel::highToLow()) {
        const auto address = hls.url({.for_ = level});
        if (!address) continue;
        const bool isChosen = chosen.empty() && address == best;
        if (isChosen) chosen = rawValue(level);
        levels.push_back(Value::Object{
            {"name", rawValue(level)}, {"address", streamLink(*address, service)}, {"isChosen", isChosen}});
    }
    return {{"type", caseName(item.type)},
            {"text", item.warning.value_or(item.title.value_or(""))},
            {"technologies", technologies},
            {"count", levels.size()},
            {"levels", levels},
            {"chosen", chosen},
            {"stream", best ? streamLink(*best, service) : ""},
            {"captions", item.captionsSrcVtt ? streamLink(*item.captionsSrcVtt, service) : ""}};
}

Value rowOf(std::string title, std::string address) {
    return Value::Object{{"title", std::move(title)}, {"address", std::move(address)}};
}

}  // namespace living_room
