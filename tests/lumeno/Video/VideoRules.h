#pragma once

/// \file
/// The rules of a video's fields.

#include <VanticRestKit/lumeno/Video/Video.h>

#include <platform/json/FieldRules.h>
#include <string>
#include <utility>

namespace VanticRestKit::test {

inline FieldRule lenientText(const char* name, const char* path) {
    return {name, path, Strictness::lenient, text()};
}

/// A list of links that is `[]` if one of them fails.
inline Shape linkList() {
    return listOf(
        "[]",
        {{R"([{"href":"$","id":"i","title":"t","tags":["a"]},{"href":"","title":1,"tags":"a"}])",
          R"([{"id":"i","title":"t","href":"$","tags":["a"]},{"id":null,"title":null,"href":"","tags":[]}])"},
         {"[]", "[]"}},
        {"{\"id\":\"i\"}"});
}

inline Shape participantList() {
    return listOf("[]",
                  {{R"([{"title":"$","list":"A, B"},{},{"list":null}])",
                    R"([{"title":"$","list":"A, B"},{"title":null,"list":null},{"title":null,"list":null}])"},
                   {"[]", "[]"}},
                  {"{\"title\":1}"});
}

inline Shape statusObject() {
    return objectOf({{R"({"title":"$","theme":"live"})", R"({"title":"$","theme":"live"})"},
                     {R"({"theme":"odd","title":"$"})", R"({"title":"$","theme":"default"})"}},
                    {{"{}"},
                     {R"({"title":"t"})"},
                     {R"({"theme":"live"})"},
                     {R"({"title":1,"theme":"live"})"},
                     {R"({"title":"t","theme":null})"}});
}

inline std::string emptyAnalytics() { return valueText(VideoAnalytics{}); }

inline Shape analyticsObject() {
    return objectOf(
        {{"{}", emptyAnalytics()}, {R"({"oztam":"x","dataLayer":{"d_id":1}})", emptyAnalytics()}});
}

/// An optional playlist. It is absent if one entry fails, which differs from an empty list.
inline Shape playlist() {
    const std::string streams =
        R"({"mpegdash":null,"fairplay":null,"hls":{"protected":false,"sd":"$","sdLow":null,)"
        R"("hd720":null,"hd1080":null}})";
    return listOf(
        "null",
        {{R"([{"type":"va","streams":{"hls":{"sd":"$"}}},{"type":"program","streams":{"hls":{"sd":"$"}},"title":"t"}])",
          R"([{"type":"viewerAdvice","streams":)" + streams +
              R"(,"title":null,"captionsSrcVtt":null,"warning":null},{"type":"program","streams":)" +
              streams + R"(,"title":"t","captionsSrcVtt":null,"warning":null}])"},
         {"[]", "[]"}},
        {R"({"type":"feature","streams":{"hls":{}}})"});
}

/// The value read under "highlightVideo", with the video's own id and href added by the mirrors below.
inline Shape playableVideo() {
    Shape shape =
        objectOf({{R"({"id":"a","href":"b","playTitle":"$"})", R"({"id":null,"href":null,"playTitle":"$"})"},
                  {"{}", R"({"id":null,"href":null,"playTitle":null})"},
                  {R"({"playTitle":1})", R"({"id":null,"href":null,"playTitle":null})"}});
    shape.empty = R"({"id":null,"href":null,"playTitle":null})";
    return shape;
}

inline EntityRules videos() {
    return {.type = decodable<Video>,
            .minimal = R"({"_links":{}})",
            .fields = {lenientText("videoId", "id"),
                       lenientText("thumbnail", "thumbnail"),
                       lenientText("portraitThumbnail", "thumbnails.portrait"),
                       lenientText("portraitTitledThumbnail", "thumbnails.portraitTitled"),
                       lenientText("character1Thumbnail", "thumbnails.character1"),
                       lenientText("character2Thumbnail", "thumbnails.character2"),
                       lenientText("episodePortraitThumbnail", "thumbnails.episodePortrait"),
                       {"pubDate", "pubDate", Strictness::lenient, deviceDateText()},
                       {"expireDate", "expireDate", Strictness::lenient, deviceDateText()},
                       lenientText("channel", "channel"),
                       lenientText("channelTitle", "channelTitle"),
                       {"subtype", "type", Strictness::lenient, rawText("episode", "episode")},
                       lenientText("title", "title"),
                       lenientText("kickerTitle", "kickerTitle"),
                       lenientText("showTitle", "showTitle"),
                       lenientText("seriesTitle", "seriesTitle"),
                       lenientText("highlightTitle", "highlightTitle"),
                       lenientText("displayTitle", "displayTitle"),
                       lenientText("displaySubtitle", "displaySubtitle"),
                       lenientText("format", "format"),
                       {"duration", "duration", Strictness::lenient, unsignedNumber()},
                       lenientText("displayDuration", "displayDuration"),
                       lenientText("displayDurationAccessible", "displayDurationAccessible"),
                       {"status", "status", Strictness::lenient, statusObject()},
                       lenientText("classification", "classification"),
                       lenientText("videoDescription", "description"),
                       {"captionsAvailable", "captions", Strictness::lenient, flag()},
                       {"captionsOnAkamai", "captionsOnAkamai", Strictness::lenient, flag()},
                       lenientText("availability", "availability"),
                       lenientText("houseNumber", "houseNumber"),
                       {"playable", "playable", Strictness::lenient, flag()},
                       lenientText("playableMessage", "playableMessage"),
                       {"relatedLinks", "relatedLinks", Strictness::lenient, linkList()},
                       {"participants", "participants", Strictness::lenient, participantList()},
                       {"analytics", "analytics", Strictness::lenient, analyticsObject()},
                       {"nextVideoCuePoint", "nextVideoCuepoint", Strictness::lenient, unsignedNumber()},
                       {"doneCuePoint", "doneCuePoint", Strictness::lenient, unsignedNumber()},
                       lenientText("shareUrl", "shareUrl"),
                       lenientText("unavailableMessage", "unavailableMessage"),
                       lenientText("selfHref", "_links.self.href"),
                       lenientText("deeplinkHref", "_links.deeplink.href"),
                       {"showId", "_links.show.id", Strictness::lenient, unsignedNumber()},
                       lenientText("showHref", "_links.show.href"),
                       lenientText("seriesId", "_links.series.id"),
                       lenientText("seriesHref", "_links.series.href"),
                       lenientText("nextEpisodeHref", "_links.nextEpisode.href"),
                       lenientText("nextEpisodeTitle", "_links.nextEpisode.title"),
                       lenientText("nextEpisodeSeriesTitle", "_links.nextEpisode.seriesTitle"),
                       {"categoryLinks", "_links.categories", Strictness::lenient, linkList()},
                       {"variationLinks", "_links.variations", Strictness::lenient, linkList()},
                       {"tags", "tags", Strictness::lenient, texts()},
                       {"playableVideo", "_links.highlightVideo", Strictness::lenient, playableVideo()},
                       {"playlist", "_embedded.playlist", Strictness::lenient, playlist()}},
            .containers = {{"thumbnails", Strictness::lenient},
                           {"_links", Strictness::required},
                           {"_links.self", Strictness::lenient},
                           {"_links.deeplink", Strictness::lenient},
                           {"_links.show", Strictness::lenient},
                           {"_links.series", Strictness::lenient},
                           {"_links.nextEpisode", Strictness::lenient},
                           {"_embedded", Strictness::lenient}},
            .mirrors = {{"videoId", "playableVideo.id"}, {"selfHref", "playableVideo.href"}}};
}

}  // namespace VanticRestKit::test
