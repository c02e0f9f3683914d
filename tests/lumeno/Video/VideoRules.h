#pragma once

/// \file
/// What the fields of a video are held to.

#include <VanticRestKit/lumeno/Video/Video.h>

#include <platform/json/FieldRules.h>
#include <string>
#include <utility>

namespace VanticRestKit::test {

inline FieldRule lenientText(const char* name, const char* path) {
    return {name, path, Word::lenient, text()};
}

/// A list of links that is `[]` where one of them fails.
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

/// A playlist that is empty, and no list without entries, where one entry fails.
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

/// What is read under "highlightVideo" and pointed at the video itself, by the mirrors below.
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
            .least = R"({"_links":{}})",
            .fields = {lenientText("videoId", "id"),
                       lenientText("thumbnail", "thumbnail"),
                       lenientText("portraitThumbnail", "thumbnails.portrait"),
                       lenientText("portraitTitledThumbnail", "thumbnails.portraitTitled"),
                       lenientText("character1Thumbnail", "thumbnails.character1"),
                       lenientText("character2Thumbnail", "thumbnails.character2"),
                       lenientText("episodePortraitThumbnail", "thumbnails.episodePortrait"),
                       {"pubDate", "pubDate", Word::lenient, deviceDateText()},
                       {"expireDate", "expireDate", Word::lenient, deviceDateText()},
                       lenientText("channel", "channel"),
                       lenientText("channelTitle", "channelTitle"),
                       {"subtype", "type", Word::lenient, rawText("episode", "episode")},
                       lenientText("title", "title"),
                       lenientText("kickerTitle", "kickerTitle"),
                       lenientText("showTitle", "showTitle"),
                       lenientText("seriesTitle", "seriesTitle"),
                       lenientText("highlightTitle", "highlightTitle"),
                       lenientText("displayTitle", "displayTitle"),
                       lenientText("displaySubtitle", "displaySubtitle"),
                       lenientText("format", "format"),
                       {"duration", "duration", Word::lenient, unsignedNumber()},
                       lenientText("displayDuration", "displayDuration"),
                       lenientText("displayDurationAccessible", "displayDurationAccessible"),
                       {"status", "status", Word::lenient, statusObject()},
                       lenientText("classification", "classification"),
                       lenientText("videoDescription", "description"),
                       {"captionsAvailable", "captions", Word::lenient, flag()},
                       {"captionsOnAkamai", "captionsOnAkamai", Word::lenient, flag()},
                       lenientText("availability", "availability"),
                       lenientText("houseNumber", "houseNumber"),
                       {"playable", "playable", Word::lenient, flag()},
                       lenientText("playableMessage", "playableMessage"),
                       {"relatedLinks", "relatedLinks", Word::lenient, linkList()},
                       {"participants", "participants", Word::lenient, participantList()},
                       {"analytics", "analytics", Word::lenient, analyticsObject()},
                       {"nextVideoCuePoint", "nextVideoCuepoint", Word::lenient, unsignedNumber()},
                       {"doneCuePoint", "doneCuePoint", Word::lenient, unsignedNumber()},
                       lenientText("shareUrl", "shareUrl"),
                       lenientText("unavailableMessage", "unavailableMessage"),
                       lenientText("selfHref", "_links.self.href"),
                       lenientText("deeplinkHref", "_links.deeplink.href"),
                       {"showId", "_links.show.id", Word::lenient, unsignedNumber()},
                       lenientText("showHref", "_links.show.href"),
                       lenientText("seriesId", "_links.series.id"),
                       lenientText("seriesHref", "_links.series.href"),
                       lenientText("nextEpisodeHref", "_links.nextEpisode.href"),
                       lenientText("nextEpisodeTitle", "_links.nextEpisode.title"),
                       lenientText("nextEpisodeSeriesTitle", "_links.nextEpisode.seriesTitle"),
                       {"categoryLinks", "_links.categories", Word::lenient, linkList()},
                       {"variationLinks", "_links.variations", Word::lenient, linkList()},
                       {"tags", "tags", Word::lenient, texts()},
                       {"playableVideo", "_links.highlightVideo", Word::lenient, playableVideo()},
                       {"playlist", "_embedded.playlist", Word::lenient, playlist()}},
            .containers = {{"thumbnails", Word::lenient},
                           {"_links", Word::required},
                           {"_links.self", Word::lenient},
                           {"_links.deeplink", Word::lenient},
                           {"_links.show", Word::lenient},
                           {"_links.series", Word::lenient},
                           {"_links.nextEpisode", Word::lenient},
                           {"_embedded", Word::lenient}},
            .mirrors = {{"videoId", "playableVideo.id"}, {"selfHref", "playableVideo.href"}}};
}

}  // namespace VanticRestKit::test
