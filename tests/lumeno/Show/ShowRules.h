#pragma once

/// \file
/// What the fields of a show are held to.

#include <lumeno/Series/SeriesRules.h>
#include <VanticRestKit/lumeno/Show/Show.h>

#include <string>
#include <utility>

namespace VanticRestKit::test {

inline Shape bannerObject() {
    return objectOf({{R"({"large":"$","small":"s","link":"l","altText":"a"})",
                      R"({"largeImageHref":"$","smallImageHref":"s","altText":"a","linkHref":"l"})"},
                     {R"({"large":"","small":"$","link":"","altText":null})",
                      R"({"largeImageHref":"","smallImageHref":"$","altText":null,"linkHref":""})"}},
                    {{"{}"},
                     {R"({"large":"a","small":"b"})"},
                     {R"({"large":"a","link":"b"})"},
                     {R"({"small":"a","link":"b"})"},
                     {R"({"large":"a","small":"b","link":"c","altText":1})"}});
}

inline Shape phrasesObject() {
    const std::string front = R"({"channel":null,"genre":null,"subGenre":null,"theme":null,"mood":)";
    const std::string back = R"(,"audience":null,"need":null,"other":null})";
    return objectOf({{R"({"mood":["a","$"]})", front + R"(["a","$"])" + back}, {"{}", front + "null" + back}},
                    {{R"({"mood":"a"})"}, {R"({"other":[1]})"}});
}

inline Shape themeText() {
    Shape shape = rawText("light", "light");
    shape.fits.emplace_back("\"default\"", "\"default\"");
    shape.empty = "\"default\"";
    return shape;
}

inline std::string seriesText(const char* id) { return valueText(Series{.seriesId = id}); }

inline Shape wholeSeries() {
    return objectOf({{R"({"id":"$","_links":{},"title":1,"_entity":"show"})", seriesText("$")}},
                    {{"{}"},
                     {R"({"id":"1"})"},
                     {R"({"_links":{}})"},
                     {R"({"id":1,"_links":{}})"},
                     {R"({"id":"1","_links":[]})"}});
}

inline Shape seriesList() {
    return listOf("[]",
                  {{R"([{"id":"$","_links":{}},{"id":"2","_links":{}}])",
                    "[" + seriesText("$") + "," + seriesText("2") + "]"},
                   {"[]", "[]"}},
                  {R"({"id":"3"})"});
}

inline EntityRules shows() {
    return {.type = decodable<Show>,
            .least = "{}",
            .fields = {{"showId", "id", Word::lenient, unsignedNumber()},
                       lenientText("slug", "slug"),
                       {"subtype", "type", Word::lenient, rawText("series", "series")},
                       lenientText("title", "title"),
                       lenientText("kickerTitle", "kickerTitle"),
                       lenientText("displayTitle", "displayTitle"),
                       lenientText("description", "description"),
                       {"status", "status", Word::lenient, statusObject()},
                       {"captionsAvailable", "captions", Word::lenient, flag()},
                       {"banner", "banner", Word::lenient, bannerObject()},
                       {"theme", "theme", Word::lenient, themeText()},
                       {"phrases", "phrases", Word::lenient, phrasesObject()},
                       lenientText("thumbnail", "thumbnail"),
                       lenientText("portraitThumbnail", "thumbnails.portrait"),
                       lenientText("portraitTitledThumbnail", "thumbnails.portraitTitled"),
                       lenientText("character1Thumbnail", "thumbnails.character1"),
                       lenientText("character2Thumbnail", "thumbnails.character2"),
                       {"episodeCount", "episodeCount", Word::lenient, unsignedNumber()},
                       lenientText("broadcastInfo", "broadcastInfo"),
                       lenientText("socialLinksTitle", "socialLinks.title"),
                       {"socialLinks", "socialLinks.items", Word::lenient, linkList()},
                       {"relatedLinks", "relatedLinks", Word::lenient, linkList()},
                       {"participants", "participants", Word::lenient, participantList()},
                       lenientText("shareUrl", "shareUrl"),
                       {"updated", "updated", Word::lenient, deviceDateText()},
                       lenientText("classification", "classification"),
                       {"tags", "tags", Word::lenient, texts()},
                       lenientText("buyAppleItmsUrl", "buy.appleITMS"),
                       lenientText("unavailableMessage", "unavailableMessage"),
                       {"duration", "duration", Word::lenient, unsignedNumber()},
                       lenientText("displayDuration", "displayDuration"),
                       lenientText("displayDurationAccessible", "displayDurationAccessible"),
                       lenientText("selfHref", "_links.self.href"),
                       lenientText("deeplinkHref", "_links.deeplink.href"),
                       {"categoryLinks", "_links.categories", Word::lenient, linkList()},
                       lenientText("alertId", "_links.alert.id"),
                       {"highlightVideo", "_embedded.highlightVideo", Word::lenient, wholeVideo()},
                       {"selectedSeries", "_embedded.selectedSeries", Word::lenient, wholeSeries()},
                       {"seriesList", "_embedded.seriesList", Word::lenient, seriesList()},
                       {"videoExtras", "_embedded.videoExtras", Word::lenient, wholeVideos()},
                       lenientText("blockedTitle", "data.blockout.title"),
                       lenientText("blockedMessage", "data.blockout.message"),
                       lenientText("channel", "channel"),
                       lenientText("channelTitle", "channelTitle"),
                       {"playableVideo", "_links.highlightVideo", Word::lenient, pointer()}},
            .containers = {{"thumbnails", Word::lenient},
                           {"socialLinks", Word::lenient},
                           {"buy", Word::lenient},
                           {"_links", Word::lenient},
                           {"_links.self", Word::lenient},
                           {"_links.deeplink", Word::lenient},
                           {"_links.alert", Word::lenient},
                           {"_embedded", Word::lenient},
                           {"data", Word::lenient},
                           {"data.blockout", Word::lenient}}};
}

}  // namespace VanticRestKit::test
