#include "streams/Streams.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "catalogue/Addresses.h"
#include "catalogue/VideoJSON.h"

namespace VanticRestKit::sample {

namespace {

// The length of the segments made by scripts/make-test-stream.
constexpr unsigned segmentSeconds = 4;
constexpr unsigned segmentCount = 5;

// Clips that are not in the catalogue, such as a classification shown before a video.
constexpr unsigned secondsOfShortItem = 2 * segmentSeconds;
// A live channel, which has no duration, lasts an hour.
constexpr unsigned secondsOfLiveChannel = 3'600;

constexpr const char* mainPlaylist =
    "#EXTM3U\n"
    "#EXT-X-VERSION:7\n"
    "#EXT-X-STREAM-INF:BANDWIDTH=120000,RESOLUTION=960x540,CODECS=\"avc1.42c028,mp4a.40.2\"\n"
    "large.m3u8\n"
    "#EXT-X-STREAM-INF:BANDWIDTH=70000,RESOLUTION=480x270,CODECS=\"avc1.42c01f,mp4a.40.2\"\n"
    "small.m3u8\n";

/// One quality, repeated until the duration is reached.
std::string mediaPlaylist(const std::string& quality, unsigned seconds) {
    std::string text = "#EXTM3U\n#EXT-X-VERSION:7\n#EXT-X-TARGETDURATION:" + std::to_string(segmentSeconds) +
                       "\n#EXT-X-PLAYLIST-TYPE:VOD\n";
    const unsigned segments = std::max(1U, (seconds + segmentSeconds - 1) / segmentSeconds);
    for (unsigned i = 0; i < segments; ++i) {
        if (i > 0 && i % segmentCount == 0) text += "#EXT-X-DISCONTINUITY\n";
        if (i % segmentCount == 0) text += "#EXT-X-MAP:URI=\"" + quality + "-init.mp4\"\n";
        text += "#EXTINF:" + std::to_string(segmentSeconds) + ",\n";
        text += quality + '-' + std::to_string(i % segmentCount) + ".m4s\n";
    }
    return text + "#EXT-X-ENDLIST\n";
}

unsigned secondsOf(const std::string& name) {
    const Video* video = catalogue().video(name);
    if (video == nullptr) return secondsOfShortItem;
    const unsigned seconds = durationOf(*video);
    return seconds > 0 ? seconds : secondsOfLiveChannel;
}

/// The playlist of a file's name, such as "HL0102-sd-low.m3u8".
std::optional<std::string> playlistOf(const std::string& file) {
    const std::string ending = ".m3u8";
    if (!file.ends_with(ending)) return std::nullopt;
    const std::string stem = file.substr(0, file.size() - ending.size());
    if (stem == "main") return mainPlaylist;
    if (stem == "large" || stem == "small") return mediaPlaylist(stem, segmentCount * segmentSeconds);
    for (const std::string level : {"-sd-low", "-sd", "-720", "-1080"}) {
        if (!stem.ends_with(level)) continue;
        const std::string name = stem.substr(0, stem.size() - level.size());
        return mediaPlaylist(level == "-sd-low" ? "small" : "large", secondsOf(name));
    }
    return std::nullopt;
}

Reply textReply(std::string text, const char* contentType) {
    Reply reply;
    reply.text = std::move(text);
    reply.contentType = contentType;
    reply.headers.emplace_back("Cache-Control", "max-age=86400");
    return reply;
}

Reply hls(const Request&, const Captures& captures) {
    const std::string& name = captures[0];
    if (auto playlist = playlistOf(name)) {
        return textReply(std::move(*playlist), "application/vnd.apple.mpegurl");
    }
    const auto& files = embeddedFiles();
    const auto found =
        std::find_if(files.begin(), files.end(), [&](const EmbeddedFile& file) { return file.name == name; });
    if (found == files.end()) return failure(404, "No such stream");
    return textReply(std::string(found->bytes), "video/mp4");
}

std::string timeOfCue(unsigned seconds) {
    char text[24];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u.000", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text;
}

Reply captionsOf(const Request&, const Captures& captures) {
    const std::string ending = ".vtt";
    const std::string& file = captures[0];
    const Video* video =
        file.ends_with(ending) ? catalogue().video(file.substr(0, file.size() - ending.size())) : nullptr;
    if (video == nullptr) return failure(404, "No such captions");
    std::string text = "WEBVTT\n";
    const unsigned seconds = secondsOf(video->houseNumber);
    for (unsigned start = 0; start < seconds; start += segmentSeconds) {
        text += '\n' + timeOfCue(start) + " --> " + timeOfCue(start + segmentSeconds) + '\n';
        text +=
            video->title + ", " + std::to_string(start / 60) + " min " + std::to_string(start % 60) + " s\n";
    }
    return textReply(std::move(text), "text/vtt; charset=utf-8");
}

}  // namespace

std::vector<Route> streamRoutes() {
    return {{"GET", "hls/{file}", hls}, {"GET", "captions/{file}", captionsOf}};
}

void serveStreamsFrom(const std::string& origin, JSON& value) {
    if (value.is_structured()) {
        for (auto& member : value) serveStreamsFrom(origin, member);
    } else if (value.is_string()) {
        static const std::string mediaHost = mediaAddress("");
        auto& text = value.get_ref<std::string&>();
        if (text.starts_with(mediaHost)) text.replace(0, mediaHost.size(), origin + '/');
    }
}

}  // namespace VanticRestKit::sample
