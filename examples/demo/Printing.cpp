#include "Printing.h"

#include <VanticRestKit/platform/json/RawText.h>

#include <cstdio>
#include <ctime>
#include <string_view>

namespace demo {

using namespace VanticRestKit;

namespace {

/// In the zone of this computer.
std::string textOf(const std::optional<Date>& date) {
    if (!date) return {};
    const auto seconds = static_cast<std::time_t>(date->time_since_epoch().count());
    std::tm local{};
    char text[32];
    if (localtime_r(&seconds, &local) == nullptr) return {};
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
    return text;
}

/// Characters, not bytes, so that columns stay in line.
std::string padded(std::string_view text, std::size_t width) {
    std::size_t characters = 0;
    for (const char byte : text) characters += (byte & 0xC0) != 0x80;
    std::string result(text);
    result.append(characters < width ? width - characters : 0, ' ');
    return result;
}

void printStream(const char* technology, const StreamInfo& stream) {
    std::string levels;
    for (const auto level : StreamInfo::highToLow()) {
        if (!stream.url({.for_ = level})) continue;
        if (!levels.empty()) levels += ' ';
        levels += rawValue(level);
    }
    printField(technology, levels + (stream.protected_ ? " (protected)" : ""));
}

/// The address that a player is given: the best quality, or what a slow line can carry.
void printChoice(const PlaylistItem& item) {
    printField("    best HLS", item.streams.hls.url({.preferHighest = true}).value_or("none"));
    printField("    least HLS", item.streams.hls.url({.preferHighest = false}).value_or("none"));
    printField("    720 HLS", item.streams.hls.url({.for_ = StreamInfo::StreamLevel::hd720}).value_or("none"));
    printField("    captions", item.captionsSrcVtt.value_or(""));
}

void printPlaylist(const std::vector<PlaylistItem>& playlist) {
    for (const auto& item : playlist) {
        printField(("  " + std::string(caseName(item.type))).c_str(),
                   item.warning.value_or(item.title.value_or("-")));
        if (item.streams.mpegdash) printStream("    MPEG-DASH", *item.streams.mpegdash);
        if (item.streams.fairplay) printStream("    FairPlay", *item.streams.fairplay);
        printStream("    HLS", item.streams.hls);
        if (item.type == PlaylistItem::PlaylistType::program) printChoice(item);
    }
}

}  // namespace

void printHeading(const std::string& text) { std::printf("\n%s\n", text.c_str()); }

void printField(const char* label, const std::string& text) {
    if (!text.empty()) std::printf("  %-16s %s\n", label, text.c_str());
}

void printTime(double secondsSince1970) {
    const auto whole = static_cast<std::time_t>(secondsSince1970);
    std::tm utc{};
    char text[32];
    gmtime_r(&whole, &utc);
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &utc);
    std::printf("  %s\n", text);
}

void printAvatars(const std::vector<Image>& avatars) {
    for (const auto& avatar : avatars) {
        std::printf("  %s %s %3ux%-3u  %s\n", padded(avatar.id.value_or("-"), 10).c_str(),
                    padded(avatar.accessibilityText.value_or(""), 32).c_str(),
                    static_cast<unsigned>(avatar.width.value_or(0)),
                    static_cast<unsigned>(avatar.height.value_or(0)), avatar.url.value_or("").c_str());
    }
}

void printVideos(const std::vector<Video>& videos) {
    for (const auto& video : videos) {
        std::printf("  %s %s %s %s %s %s\n", padded(video.houseNumber.value_or("-"), 8).c_str(),
                    padded(video.showTitle.value_or(""), 22).c_str(),
                    padded(video.title.value_or(""), 24).c_str(),
                    padded(video.displayDuration.value_or("live"), 7).c_str(),
                    padded(video.classification.value_or(""), 5).c_str(),
                    video.playable ? video.availability.value_or("").c_str()
                                   : video.playableMessage.value_or("").c_str());
    }
}

void printVideo(const Video& video) {
    printField("title", video.title.value_or("Untitled"));
    printField("of", video.displayTitle.value_or("") + ", " + video.displaySubtitle.value_or(""));
    printField("about", video.videoDescription.value_or(""));
    for (const auto& participants : video.participants) {
        printField("with", participants.title.value_or("") + " " + participants.list.value_or(""));
    }
    printField("on", video.channelTitle.value_or(""));
    printField("published", textOf(video.pubDate));
    printField("until", textOf(video.expireDate));
    printField("badge", video.status ? video.status->title : "");
    printField("show slug", video.derivedShowSlug().value_or(""));
    printField("next episode", video.nextEpisodeTitle.value_or(""));
    if (video.analytics) printField("reported as", video.analytics->oztamMediaId.value_or(""));
    printField("to play it", video.playable && video.playableVideo ? video.playableVideo->playTitle.value_or("")
                                                                  : video.playableMessage.value_or(""));
    if (video.playlist) printPlaylist(*video.playlist);
}

}  // namespace demo
