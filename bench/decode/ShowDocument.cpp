#include "DocumentParts.h"

// clang-format off: a document, laid out as it is written

namespace VanticRestKit::bench {

namespace {

std::string playable(Random& random, Random* shuffle) {
    const std::string house = "zx" + std::to_string(random() % 100000) + "a";
    return Object().text("id", house).text("href", "video/" + house).text("playTitle", "Play").json(shuffle);
}

std::string phrases(Random* shuffle) {
    return Object()
        .raw("genre", R"(["drama","mystery"])")
        .raw("mood", R"(["slow","warm"])")
        .raw("theme", R"(["sea","family"])")
        .raw("audience", R"(["adults"])")
        .raw("other", "[]")
        .json(shuffle);
}

std::string showLinks(Random& random, Random* shuffle, const std::string& slug) {
    return Object()
        .raw("self", href("v2/show/" + slug, shuffle))
        .raw("deeplink", href("/show/" + slug, shuffle))
        .raw("categories", '[' + link(random, shuffle) + ',' + link(random, shuffle) + ']')
        .raw("highlightVideo", playable(random, shuffle))
        .json(shuffle);
}

std::string seriesLinks(Random& random, Random* shuffle, const std::string& slug) {
    return Object()
        .raw("self", href("v2/series/" + slug, shuffle))
        .raw("deeplink", href("/show/" + slug + "/series", shuffle))
        .raw("show", Object().number("id", random() % 10000).text("href", "v2/show/" + slug).json(shuffle))
        .raw("highlightVideo", playable(random, shuffle))
        .json(shuffle);
}

}  // namespace

std::string show(Random& random, Random* shuffle) {
    const std::string slug = "show-" + std::to_string(random() % 100000);
    const std::string picture = "https://pictures.example.test/" + slug + "/" + std::to_string(random());
    const std::string thumbnails = Object()
                                       .text("portrait", picture + "-p.jpg")
                                       .text("portraitTitled", picture + "-pt.jpg")
                                       .text("character1", picture + "-c1.png")
                                       .json(shuffle);
    return Object()
        .text("_entity", "show")
        .number("id", random() % 100000)
        .text("slug", slug)
        .text("type", "series")
        .text("updated", "2026-03-0" + std::to_string(1 + random() % 9) + " 19:30:00")
        .text("title", words(random, 18))
        .text("kickerTitle", "New")
        .text("displayTitle", words(random, 20))
        .text("description", words(random, 160))
        .raw("status", status(shuffle))
        .truth("captions", true)
        .text("theme", "light")
        .raw("phrases", phrases(shuffle))
        .text("thumbnail", picture + ".jpg")
        .number("episodeCount", random() % 60)
        .text("broadcastInfo", "Mondays at half past seven")
        .raw("relatedLinks", "[]")
        .raw("participants",
             '[' + Object().text("title", "With").text("list", words(random, 20)).json(shuffle) + ']')
        .text("shareUrl", "https://vantic.example.test/show/" + slug)
        .text("classification", "PG")
        .raw("tags", R"(["drama","series-start"])")
        .text("channel", "vanticmain")
        .text("channelTitle", "Vantic Main")
        .raw("thumbnails", thumbnails)
        .raw("_links", showLinks(random, shuffle, slug))
        .json(shuffle);
}

std::string series(Random& random, Random* shuffle) {
    const std::string slug = "series-" + std::to_string(random() % 100000);
    return Object()
        .text("_entity", "series")
        .text("id", std::to_string(random()))
        .text("title", "Series 2")
        .text("kickerTitle", "New")
        .text("showTitle", words(random, 14))
        .text("displayTitle", words(random, 20))
        .text("displaySubtitle", words(random, 24))
        .text("description", words(random, 160))
        .text("thumbnail", "https://pictures.example.test/" + slug + ".jpg")
        .number("episodeCount", random() % 60)
        .raw("participants", "[]")
        .text("classification", "M")
        .raw("tags", R"(["drama","new"])")
        .text("channel", "vanticmain")
        .text("channelTitle", "Vantic Main")
        .text("extrasTitle", "Clips")
        .raw("_links", seriesLinks(random, shuffle, slug))
        .json(shuffle);
}

}  // namespace VanticRestKit::bench
