#include "VideoPrinting.h"

#include "Printing.h"

#include <VanticRestKit/platform/json/RawText.h>

#include <cstdio>

namespace demo {

using namespace VanticRestKit;

namespace {

void printStream(const char* technology, const StreamInfo& stream) {
    std::string levels;
    for (const auto level : StreamInfo::StreamLevel::highToLow()) {
        if (!stream.url({.for_ = level})) continue;
        if (!levels.empty()) levels += ' ';
        levels += rawValue(level);
    }
    printField(technology, levels + (stream.protected_ ? " (protected)" : ""));
}

/// Prints the URLs for a player: the highest quality, and the lowest for a slow connection.
void printChoice(const PlaylistItem& item) {
    printField("    highest HLS", item.streams.hls.url({.preferHighest = true}).value_or("none"));
    printField("    lowest HLS", item.streams.hls.url({.preferHighest = false}).value_or("none"));
    printField("    720 HLS",
               item.streams.hls.url({.for_ = StreamInfo::StreamLevel::hd720}).value_or("none"));
    printField("    captions", item.captionsSrcVtt.value_or(""));
}

}  // namespace

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
    printField("expires", textOf(video.expireDate));
    printField("badge", video.status ? video.status->title : "");
    printField("show slug", video.derivedShowSlug().value_or(""));
    printField("next episode", video.nextEpisodeTitle.value_or(""));
    if (video.analytics) printField("analytics id", video.analytics->oztamMediaId.value_or(""));
    printField("play button", video.playable && video.playableVideo
                                  ? video.playableVideo->playTitle.value_or("")
                                  : video.playableMessage.value_or(""));
    if (video.playlist) printPlaylist(*video.playlist);
}

}  // namespace demo
