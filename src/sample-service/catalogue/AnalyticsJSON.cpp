#include "catalogue/VideoJSON.h"

namespace VanticRestKit::sample {

namespace {

JSON oztamJSON(const Video& video) {
    const Show& show = *video.show;
    JSON json;
    json["publisherId"] = "vantic-sample";
    json["mediaId"] = video.houseNumber;
    json["classification"] = show.classification;
    json["seriesName"] = show.title;
    json["seriesId"] = show.code;
    json["episodeName"] = video.title;
    json["episodeId"] = video.houseNumber;
    json["channel"] = show.channel;
    json["url"] = "https://vantic.example/show/" + show.slug + "/video/" + video.houseNumber;
    if (durationOf(video) > 0) json["mediaDuration"] = durationOf(video);
    json["mediaType"] = show.type == "livestream" ? "live" : "vod";
    return json;
}

JSON dataLayerJSON(const Video& video) {
    const Show& show = *video.show;
    JSON json;
    json["d_id"] = std::to_string(video.id);
    json["d_contentType"] = "video";
    json["d_contentSource"] = "catalogue";
    json["d_uri"] = "vantic://video/" + video.houseNumber;
    json["d_program_name"] = show.title;
    json["d_program_id"] = std::to_string(show.id);
    if (video.series > 0) {
        json["d_series_name"] = "Series " + std::to_string(video.series);
        json["d_series_id"] = show.code + "-S" + std::to_string(video.series);
        json["d_episode_name"] = video.title;
        json["d_episode_id"] = video.houseNumber;
    }
    json["d_language"] = "en";
    json["d_canonicalUrl"] = "https://vantic.example/video/" + video.houseNumber;
    json["d_categories"] = show.category;
    json["d_classification"] = show.classification;
    json["d_mediaDuration"] = std::to_string(durationOf(video));
    json["d_captionsAvailable"] = video.id % 9 == 0 ? "false" : "true";
    json["d_streamType"] = show.type == "livestream" ? "live" : "vod";
    json["d_videoType"] = show.type;
    json["d_title_title"] = show.title + " | " + video.title;
    return json;
}

}  // namespace

JSON analyticsJSON(const Video& video) {
    return {{"oztam", oztamJSON(video)}, {"dataLayer", dataLayerJSON(video)}};
}

}  // namespace VanticRestKit::sample
