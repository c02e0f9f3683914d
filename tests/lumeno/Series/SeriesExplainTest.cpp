// The faults reported for a series' document.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Series/Series.h>

#include <platform/json/FaultText.h>

namespace VanticRestKit {
namespace {

using test::faultText;

TEST(ExplainingASeries, DoesNotReportIgnoredKeys) {
    EXPECT_EQ(
        faultText<Series>(R"({"id":"1","shareUrl":7,"_entity":7,"status":7,"_links":{"categories":7}})"), "");
}

TEST(ExplainingASeries, ReportsFaultsInDecodingOrder) {
    EXPECT_EQ(
        faultText<Series>(
            R"({"_embedded":{"highlightVideo":1,"videoExtras":1,"videoEpisodes":1},"_links":{"highlightVideo":1,)"
            R"("show":{"id":"1","href":1},"deeplink":1,"self":1},"extrasTitle":1,"channelTitle":1,"channel":1,)"
            R"("tags":1,"classification":1,"participants":1,"episodeCount":"1","thumbnail":1,"description":1,)"
            R"("displaySubtitle":1,"displayTitle":1,"showTitle":1,"kickerTitle":1,"title":1,"id":"1"})"),
        "/title lenient: String, number, empty\n"
        "/kickerTitle lenient: String, number, empty\n"
        "/showTitle lenient: String, number, empty\n"
        "/displayTitle lenient: String, number, empty\n"
        "/displaySubtitle lenient: String, number, empty\n"
        "/description lenient: String, number, empty\n"
        "/thumbnail lenient: String, number, empty\n"
        "/episodeCount lenient: UInt, string, empty\n"
        "/participants lenient: [Participants], number, []\n"
        "/classification lenient: String, number, empty\n"
        "/tags lenient: [String], number, []\n"
        "/channel lenient: String, number, empty\n"
        "/channelTitle lenient: String, number, empty\n"
        "/extrasTitle lenient: String, number, empty\n"
        "/_links/self lenient: Object, number, empty\n"
        "/_links/deeplink lenient: Object, number, empty\n"
        "/_links/show/href lenient: String, number, empty\n"
        "/_links/show/id lenient: UInt, string, empty\n"
        "/_links/highlightVideo lenient: DirectPlayableVideo, number, empty\n"
        "/_embedded/videoEpisodes lenient: [Video], number, []\n"
        "/_embedded/videoExtras lenient: [Video], number, []\n"
        "/_embedded/highlightVideo lenient: Video, number, empty\n");
}

TEST(ExplainingASeries, ReportsTheEpisodeThatEmptiesTheList) {
    EXPECT_EQ(faultText<Series>(
                  R"({"id":"1","_links":{},"_embedded":{"videoEpisodes":[{"_links":{}},{"title":1}]}})"),
              "/_embedded/videoEpisodes/1/title lenient: String, number, empty\n"
              "/_embedded/videoEpisodes/1/_links lenient: Object, nothing, []\n");
}

TEST(ExplainingASeries, ReportsTheFaultThatFailsItLast) {
    EXPECT_EQ(faultText<Series>(R"({"id":1,"title":1,"_links":{}})"),
              "/id required: String, number, failure\n");
    EXPECT_EQ(faultText<Series>(R"({"id":"1","title":1})"),
              "/title lenient: String, number, empty\n"
              "/_links required: Object, nothing, failure\n");
}

}  // namespace
}  // namespace VanticRestKit
