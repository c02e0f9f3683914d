#pragma once

/// \file
/// The rules of a show's fields.

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
            .minimal = "{}",
            .fields = {{"showId", "id", Strictness::lenient, unsignedNumber()},
                       lenientText("slug", "slug"),
                       {"subtype", "type", Strictness::lenient, rawText("series", "series")},
                       lenientText("title", "title"),
                       lenientText("kickerTitle", "kickerTitle"),
                       lenientText("displayTitle", "displayTitle"),
                       lenientText("description", "description"),
                       {"status", "status", Strictness::lenient, statusObject()},
                       {"captionsAvailable", "captions", Strictness::lenient, flag()},
                       {"banner", "banner", Strictness::lenient, bannerObject()},
                       {"theme", "theme", Strictness::lenient, themeText()},
                       {"phrases", "phrases", Strictness::lenient, phrasesObject()},
                       lenientText("thumbnail", "thumbnail"),
                       lenientText("portraitThumbnail", "thumbnails.portrait"),
                       lenientText("portraitTitledThumbnail", "thumbnails.portraitTitled"),
                       lenientText("character1Thumbnail", "thumbnails.character1"),
                       lenientText("character2Thumbnail", "thumbnails.character2"),
                       {"episodeCount", "episodeCount", Strictness::lenient, unsignedNumber()},
                       lenientText("broadcastInfo", "broadcastInfo"),
                       lenientText("socialLinksTitle", "socialLinks.title"),
                       {"socialLinks", "socialLinks.items", Strictness::lenient, linkList()},
                       {"relatedLinks", "relatedLinks", Strictness::lenient, linkList()},
                       {"participants", "participants", Strictness::lenient, participantList()},
                       lenientText("shareUrl", "shareUrl"),
                       {"updated", "updated", Strictness::lenient, deviceDateText()},
                       lenientText("classification", "classification"),
                       {"tags", "tags", Strictness::lenient, texts()},
                       lenientText("buyAppleItmsUrl", "buy.appleITMS"),
                       lenientText("unavailableMessage", "unavailableMessage"),
                       {"duration", "duration", Strictness::lenient, unsignedNumber()},
                       lenientText("displayDuration", "displayDuration"),
                       lenientText("displayDurationAccessible", "displayDurationAccessible"),
                       lenientText("selfHref", "_links.self.href"),
                       lenientText("deeplinkHref", "_links.deeplink.href"),
                       {"categoryLinks", "_links.categories", Strictness::lenient, linkList()},
                       lenientText("alertId", "_links.alert.id"),
                       {"highlightVideo", "_embedded.highlightVideo", Strictness::lenient, wholeVideo()},
                       {"selectedSeries", "_embedded.selectedSeries", Strictness::lenient, wholeSeries()},
                       {"seriesList", "_embedded.seriesList", Strictness::lenient, seriesList()},
                       {"videoExtras", "_embedded.videoExtras", Strictness::lenient, wholeVideos()},
                       lenientText("blockedTitle", "data.blockout.title"),
                       lenientText("blockedMessage", "data.blockout.message"),
                       lenientText("channel", "channel"),
                       lenientText("channelTitle", "channelTitle"),
                       {"playableVideo", "_links.highlightVideo", Strictness::lenient, pointer()}},
            .containers = {{"thumbnails", Strictness::lenient},
                           {"socialLinks", Strictness::lenient},
                           {"buy", Strictness::lenient},
                           {"_links", Strictness::lenient},
                           {"_links.self", Strictness::lenient},
                           {"_links.deeplink", Strictness::lenient},
                           {"_links.alert", Strictness::lenient},
                           {"_embedded", Strictness::lenient},
                           {"data", Strictness::lenient},
                           {"data.blockout", Strictness::lenient}}};
}

}  // namespace VanticRestKit::test
