// The faults reported for a video's document.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <platform/json/FaultText.h>

namespace VanticRestKit {
namespace {

using test::faultText;

TEST(ExplainingAVideo, ReportsNothingForTheSmallestVideo) {
    EXPECT_EQ(faultText<Video>(R"({"_links":{}})"), "");
}

TEST(ExplainingAVideo, ReportsFaultsInDecodingOrder) {
    EXPECT_EQ(faultText<Video>(
                  R"({"_embedded":1,"_links":{"variations":1,"self":1,"highlightVideo":1},"thumbnails":1,)"
                  R"("tags":1,"id":1,"expireDate":1,"type":"nonsense","_entity":1})"),
              "/_entity lenient: String, number, no check\n"
              "/type lenient: LumenoSubtype, string, empty\n"
              "/expireDate lenient: String, number, empty\n"
              "/id lenient: String, number, empty\n"
              "/tags lenient: [String], number, []\n"
              "/thumbnails lenient: Object, number, empty\n"
              "/_links/self lenient: Object, number, empty\n"
              "/_links/variations lenient: [Link], number, []\n"
              "/_links/highlightVideo lenient: DirectPlayableVideo, number, "
              R"({"id":null,"href":null,"playTitle":null})"
              "\n"
              "/_embedded lenient: Object, number, empty\n");
}

TEST(ExplainingAVideo, ReportsTheFinalValueOfADerivedField) {
    EXPECT_EQ(faultText<Video>(R"({"id":"7","_links":{"highlightVideo":"x"},"houseNumber":5})"),
              "/houseNumber lenient: String, number, empty\n"
              "/_links/highlightVideo lenient: DirectPlayableVideo, string, "
              R"({"id":"7","href":null,"playTitle":null})"
              "\n");
}

TEST(ExplainingAVideo, ReportsFaultsInsideNestedValues) {
    EXPECT_EQ(
        faultText<Video>(
            R"({"status":{"title":"t"},"captions":"true","duration":"120","relatedLinks":[{"href":"a"},{}],)"
            R"("participants":[{"title":1}],"analytics":{"oztam":{"mediaDuration":"1"}},)"
            R"("_links":{"show":{"id":"7"},"series":{"id":7}},)"
            R"("_embedded":{"playlist":[{"type":"va","streams":{"hls":{"sd":1}}},{"type":"x"}]}})"),
        "/duration lenient: UInt, string, empty\n"
        "/status/theme lenient: StatusTheme, nothing, empty\n"
        "/captions lenient: Bool, string, false\n"
        "/relatedLinks/1/href lenient: String, nothing, []\n"
        "/participants/0/title lenient: String, number, []\n"
        "/analytics/oztam/mediaDuration lenient: UInt, string, empty\n"
        "/_links/show/id lenient: UInt, string, empty\n"
        "/_links/series/id lenient: String, number, empty\n"
        "/_embedded/playlist/0/streams/hls/sd lenient: String, number, empty\n"
        "/_embedded/playlist/1/type lenient: PlaylistItem.PlaylistType, string, empty\n");
}

TEST(ExplainingAVideo, ReportsTheFaultThatFailsItLast) {
    EXPECT_EQ(faultText<Video>(R"({"title":1})"),
              "/title lenient: String, number, empty\n"
              "/_links required: Object, nothing, failure\n");
    EXPECT_EQ(faultText<Video>(R"({"_links":[]})"), "/_links required: Object, array, failure\n");
    EXPECT_EQ(faultText<Video>("7"), " required: Video, number, failure\n");
}

TEST(ExplainingAVideo, NamesTheWrongEntity) {
    const Diagnosis diagnosis =
        diagnose<std::vector<Video>>(Data(R"([{"_links":{}},{"_entity":"Show","title":1}])"));
    ASSERT_EQ(diagnosis.faults.size(), 1U);
    EXPECT_EQ(diagnosis.path, (CodingPath{std::size_t{1}}));
    EXPECT_EQ(diagnosis.faults[0].path, diagnosis.path);
    EXPECT_EQ(diagnosis.faults[0].expected, "video");
    EXPECT_EQ(diagnosis.faults[0].found, "Show");
    EXPECT_EQ(diagnosis.faults[0].became, "failure");
}

TEST(ExplainingAVideoList, ReportsTheVideoThatEmptiesIt) {
    EXPECT_EQ(faultText<VideoList>(R"({"items":[{"_links":{}},{"title":1}]})"),
              "/items/1/title lenient: String, number, empty\n"
              "/items/1/_links lenient: Object, nothing, []\n");
    EXPECT_EQ(faultText<VideoList>(R"({"items":[{"_entity":"show"}]})"),
              "/items/0 lenient: video, show, []\n");
}

}  // namespace
}  // namespace VanticRestKit
