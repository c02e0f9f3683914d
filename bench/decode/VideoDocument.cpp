#include "DocumentParts.h"

// clang-format off: a document, laid out as it is written

namespace VanticRestKit::bench {

namespace {

std::string stream(Random& random, Random* shuffle, std::string_view kind) {
    const std::string base =
        "https://media.example.test/" + std::string(kind) + "/" + std::to_string(random());
    return Object()
        .text("sd", base + "/sd.m3u8")
        .text("sd-low", base + "/sd-low.m3u8")
        .text("720", base + "/720.m3u8")
        .text("1080", base + "/1080.m3u8")
        .truth("protected", random() % 2 == 0)
        .json(shuffle);
}

std::string analytics(Random& random, Random* shuffle) {
    const std::string oztam = Object()
                                  .text("publisherId", "example")
                                  .text("mediaId", "ZX" + std::to_string(random()))
                                  .text("classification", "PG")
                                  .text("seriesName", words(random, 12))
                                  .text("episodeName", words(random, 10))
                                  .number("mediaDuration", random() % 5000)
                                  .text("mediaType", "vod")
                                  .json(shuffle);
    const std::string layer = Object()
                                  .text("d_id", std::to_string(random()))
                                  .text("d_contentType", "video")
                                  .text("d_program_name", words(random, 14))
                                  .text("d_language", "en")
                                  .text("d_streamType", "vod")
                                  .text("d_mediaDuration", std::to_string(random() % 5000))
                                  .text("d_captionsAvailable", "true")
                                  .json(shuffle);
    return Object().raw("oztam", oztam).raw("dataLayer", layer).json(shuffle);
}

std::string links(Random& random, Random* shuffle, const std::string& slug) {
    const auto path = [&](const std::string& text) { return href(text, shuffle); };
    return Object()
        .raw("self", path("video/" + slug))
        .raw("deeplink", path("/show/" + slug + "/video"))
        .raw("show", Object().number("id", random() % 10000).text("href", "show/" + slug).json(shuffle))
        .raw("series", Object()
                           .text("id", std::to_string(random() % 10000))
                           .text("href", "series/" + slug)
                           .json(shuffle))
        .raw("nextEpisode", Object()
                                .text("href", "video/next-" + slug)
                                .text("title", words(random, 12))
                                .text("seriesTitle", "Series 2")
                                .json(shuffle))
        .raw("categories", '[' + link(random, shuffle) + ',' + link(random, shuffle) + ']')
        .raw("highlightVideo",
             Object().text("id", slug).text("href", "video/" + slug).text("playTitle", "Play").json(shuffle))
        .json(shuffle);
}

}  // namespace

std::string video(Random& random, Random* shuffle) {
    const std::string slug = "zx" + std::to_string(random() % 100000) + "a";
    const std::string picture = "https://pictures.example.test/" + slug + "/" + std::to_string(random());
    const std::string streams = Object()
                                    .raw("mpegdash", stream(random, shuffle, "dash"))
                                    .raw("hls", stream(random, shuffle, "hls"))
                                    .json(shuffle);
    const std::string item = Object()
                                 .text("type", "program")
                                 .raw("streams", streams)
                                 .text("title", words(random, 10))
                                 .raw("captions", Object().text("src-vtt", picture + ".vtt").json(shuffle))
                                 .json(shuffle);
    return Object()
        .text("_entity", "video")
        .text("id", std::to_string(random()))
        .text("type", "episode")
        .text("pubDate", "2026-03-0" + std::to_string(1 + random() % 9) + " 19:30:00")
        .text("expireDate", "2027-04-1" + std::to_string(random() % 10) + " 23:59:59")
        .text("channel", "vanticmain")
        .text("channelTitle", "Vantic Main")
        .text("title", words(random, 18))
        .text("kickerTitle", "New")
        .text("showTitle", words(random, 14))
        .text("seriesTitle", "Series 1")
        .text("displayTitle", words(random, 20))
        .text("displaySubtitle", words(random, 24))
        .text("format", "Episode")
        .number("duration", random() % 5000)
        .text("displayDuration", "47m")
        .text("displayDurationAccessible", "47 minutes")
        .raw("status", status(shuffle))
        .text("classification", "PG")
        .text("description", words(random, 160))
        .truth("captions", true)
        .truth("captionsOnAkamai", false)
        .text("availability", "Expires in 12 days")
        .text("houseNumber", slug)
        .truth("playable", true)
        .raw("relatedLinks", '[' + link(random, shuffle) + ']')
        .raw("participants",
             '[' + Object().text("title", "Director").text("list", words(random, 20)).json(shuffle) + ']')
        .raw("analytics", analytics(random, shuffle))
        .number("nextVideoCuepoint", random() % 5000)
        .number("doneCuePoint", random() % 5000)
        .text("shareUrl", "https://vantic.example.test/show/" + slug)
        .raw("tags", R"(["drama","new","series-start"])")
        .text("thumbnail", picture + ".jpg")
        .raw("thumbnails", Object()
                               .text("portrait", picture + "-p.jpg")
                               .text("portraitTitled", picture + "-pt.jpg")
                               .json(shuffle))
        .raw("_links", links(random, shuffle, slug))
        .raw("_embedded", Object().raw("playlist", '[' + item + ']').json(shuffle))
        .json(shuffle);
}

}  // namespace VanticRestKit::bench
