#include "catalogue/Addresses.h"
#include "catalogue/VideoJSON.h"

namespace VanticRestKit::sample {

namespace {

// As on the real service, not every video has every quality, so a host must choose among the available ones.
JSON streamJSON(const Video& video, const std::string& technology, const char* extension) {
    const std::string base = mediaAddress(technology + "/" + video.houseNumber);
    JSON stream;
    stream["sd"] = base + "-sd." + extension;
    stream["sd-low"] = base + "-sd-low." + extension;
    if (video.id % 2 == 0) stream["720"] = base + "-720." + extension;
    if (video.id % 4 == 0) stream["1080"] = base + "-1080." + extension;
    stream["protected"] = technology != "hls" || video.show->type == "feature";
    return stream;
}

JSON streamsJSON(const Video& video) {
    JSON streams;
    if (video.show->type != "livestream") {
        streams["mpegdash"] = streamJSON(video, "dash", "mpd");
        if (video.id % 3 != 0) streams["fairplay"] = streamJSON(video, "fairplay", "m3u8");
    }
    streams["hls"] = streamJSON(video, "hls", "m3u8");
    return streams;
}

JSON shortItem(const char* type, const std::string& name) {
    const std::string address = mediaAddress("hls/" + name + "-sd.m3u8");
    return {{"type", type}, {"streams", {{"hls", {{"sd", address}, {"protected", false}}}}}};
}

const char* mainType(const Video& video) {
    if (video.show->type == "livestream") return "livestream";
    return video.show->type == "trailer" ? "trailer" : "program";
}

}  // namespace

JSON playlistJSON(const Video& video) {
    const Show& show = *video.show;
    JSON playlist = JSON::array();
    if (show.type == "episode" || show.type == "feature") {
        if (video.id % 5 == 1) playlist.push_back(shortItem("preroll", "ident-" + show.channel));
        playlist.push_back(shortItem("rating", "rating-" + show.classification));
        if (show.classification.starts_with("M")) {
            auto advice = shortItem("va", "advice-" + show.slug);
            advice["warning"] = "Contains scenes at sea, and some strong language.";
            playlist.push_back(std::move(advice));
        }
    }
    JSON programme{{"type", mainType(video)}, {"streams", streamsJSON(video)}, {"title", video.title}};
    if (video.id % 9 != 0 && show.type != "livestream") {
        programme["captions"] = {{"src-vtt", mediaAddress("captions/" + video.houseNumber + ".vtt")}};
    }
    playlist.push_back(std::move(programme));
    return playlist;
}

}  // namespace VanticRestKit::sample
