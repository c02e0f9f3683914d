#pragma once

/// \file
/// The rules of a series' fields, and of fields that contain a series or a video.

#include <lumeno/Video/VideoRules.h>
#include <platform/json/FieldRules.h>
#include <VanticRestKit/lumeno/Series/Series.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// A reference to a video, read as a directly playable video.
inline Shape pointer() {
    return objectOf({{R"({"id":"a","href":"b","playTitle":"$"})", R"({"id":"a","href":"b","playTitle":"$"})"},
                     {R"({"id":1,"href":"$","playTitle":[]})", R"({"id":null,"href":"$","playTitle":null})"},
                     {"{}", R"({"id":null,"href":null,"playTitle":null})"}});
}

inline std::string videoText(const char* id) {
    return valueText(Video{.videoId = id, .playableVideo = DirectPlayableVideo{.id = id}});
}

inline Shape wholeVideo() {
    return objectOf({{R"({"_entity":"VIDEO","id":"$","_links":{},"title":1})", videoText("$")},
                     {R"({"_links":{}})", valueText(Video{.playableVideo = DirectPlayableVideo{}})}},
                    {{"{}"}, {R"({"id":"v"})"}, {R"({"_links":[]})"}, {R"({"_entity":"show","_links":{}})"}});
}

inline Shape wholeVideos() {
    return listOf("[]",
                  {{R"([{"id":"$","_links":{}},{"_entity":"video","id":"b","_links":{}}])",
                    "[" + videoText("$") + "," + videoText("b") + "]"},
                   {"[]", "[]"}},
                  {R"({"id":"c"})"});
}

inline EntityRules serieses() {
    return {.type = decodable<Series>,
            .minimal = R"({"id":"1","_links":{}})",
            .fields = {{"seriesId", "id", Strictness::required, text()},
                       lenientText("title", "title"),
                       lenientText("kickerTitle", "kickerTitle"),
                       lenientText("showTitle", "showTitle"),
                       lenientText("displayTitle", "displayTitle"),
                       lenientText("displaySubtitle", "displaySubtitle"),
                       lenientText("description", "description"),
                       lenientText("thumbnail", "thumbnail"),
                       {"episodeCount", "episodeCount", Strictness::lenient, unsignedNumber()},
                       {"participants", "participants", Strictness::lenient, participantList()},
                       lenientText("selfHref", "_links.self.href"),
                       lenientText("deeplinkHref", "_links.deeplink.href"),
                       lenientText("showHref", "_links.show.href"),
                       lenientText("channel", "channel"),
                       lenientText("channelTitle", "channelTitle"),
                       {"highlightVideo", "_embedded.highlightVideo", Strictness::lenient, wholeVideo()},
                       {"episodes", "_embedded.videoEpisodes", Strictness::lenient, wholeVideos()},
                       {"extras", "_embedded.videoExtras", Strictness::lenient, wholeVideos()},
                       lenientText("extrasTitle", "extrasTitle"),
                       lenientText("classification", "classification"),
                       {"tags", "tags", Strictness::lenient, texts()},
                       {"showId", "_links.show.id", Strictness::lenient, unsignedNumber()},
                       {"playableVideo", "_links.highlightVideo", Strictness::lenient, pointer()}},
            .containers = {{"_links", Strictness::required},
                           {"_links.self", Strictness::lenient},
                           {"_links.deeplink", Strictness::lenient},
                           {"_links.show", Strictness::lenient},
                           {"_embedded", Strictness::lenient}}};
}

}  // namespace VanticRestKit::test
