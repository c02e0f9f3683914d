// The faults reported for a show's document.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <platform/json/FaultText.h>

namespace VanticRestKit {
namespace {

using test::faultText;

TEST(ExplainingAShow, ReportsFaultsOfItsKeysInDecodingOrder) {
    EXPECT_EQ(
        faultText<Show>(
            R"({"channelTitle":1,"channel":1,"displayDurationAccessible":1,"displayDuration":1,"duration":"1",)"
            R"("unavailableMessage":1,"tags":1,"classification":1,"shareUrl":1,"participants":1,"relatedLinks":1,)"
            R"("broadcastInfo":1,"episodeCount":"1","thumbnail":1,"phrases":1,"banner":1,"captions":1,"status":1,)"
            R"("description":1,"displayTitle":1,"kickerTitle":1,"title":1,"slug":1,"id":"1","updated":1,)"
            R"("theme":"dark","type":"podcast","_entity":1})"),
        "/_entity lenient: String, number, no check\n"
        "/type lenient: LumenoSubtype, string, empty\n"
        "/theme lenient: Theme, string, default\n"
        "/updated lenient: String, number, empty\n"
        "/id lenient: UInt, string, empty\n"
        "/slug lenient: String, number, empty\n"
        "/title lenient: String, number, empty\n"
        "/kickerTitle lenient: String, number, empty\n"
        "/displayTitle lenient: String, number, empty\n"
        "/description lenient: String, number, empty\n"
        "/status lenient: Status, number, empty\n"
        "/captions lenient: Bool, number, false\n"
        "/banner lenient: Banner, number, empty\n"
        "/phrases lenient: ContextualPhrases, number, empty\n"
        "/thumbnail lenient: String, number, empty\n"
        "/episodeCount lenient: UInt, string, empty\n"
        "/broadcastInfo lenient: String, number, empty\n"
        "/relatedLinks lenient: [Link], number, []\n"
        "/participants lenient: [Participants], number, []\n"
        "/shareUrl lenient: String, number, empty\n"
        "/classification lenient: String, number, empty\n"
        "/tags lenient: [String], number, []\n"
        "/unavailableMessage lenient: String, number, empty\n"
        "/duration lenient: UInt, string, empty\n"
        "/displayDuration lenient: String, number, empty\n"
        "/displayDurationAccessible lenient: String, number, empty\n"
        "/channel lenient: String, number, empty\n"
        "/channelTitle lenient: String, number, empty\n");
}

TEST(ExplainingAShow, ReportsFaultsOfItsObjectsInDecodingOrder) {
    EXPECT_EQ(
        faultText<Show>(
            R"({"data":{"blockout":{"message":1,"title":1}},"_embedded":{"videoExtras":1,"seriesList":1,)"
            R"("selectedSeries":[],"highlightVideo":[]},"_links":{"highlightVideo":1,"alert":{"id":1},"categories":1,)"
            R"("deeplink":{"href":1},"self":{"href":1}},"buy":{"appleITMS":1},"thumbnails":{"character2":1,)"
            R"("character1":1,"portraitTitled":1,"portrait":1},"socialLinks":{"items":1,"title":1}})"),
        "/socialLinks/title lenient: String, number, empty\n"
        "/socialLinks/items lenient: [Link], number, []\n"
        "/thumbnails/portrait lenient: String, number, empty\n"
        "/thumbnails/portraitTitled lenient: String, number, empty\n"
        "/thumbnails/character1 lenient: String, number, empty\n"
        "/thumbnails/character2 lenient: String, number, empty\n"
        "/buy/appleITMS lenient: String, number, empty\n"
        "/_links/self/href lenient: String, number, empty\n"
        "/_links/deeplink/href lenient: String, number, empty\n"
        "/_links/categories lenient: [Link], number, []\n"
        "/_links/alert/id lenient: String, number, empty\n"
        "/_links/highlightVideo lenient: DirectPlayableVideo, number, empty\n"
        "/_embedded/highlightVideo lenient: Video, array, empty\n"
        "/_embedded/selectedSeries lenient: Series, array, empty\n"
        "/_embedded/seriesList lenient: [Series], number, []\n"
        "/_embedded/videoExtras lenient: [Video], number, []\n"
        "/data/blockout/title lenient: String, number, empty\n"
        "/data/blockout/message lenient: String, number, empty\n");
}

TEST(ExplainingAShow, ReportsTheSeriesThatEmptiesTheList) {
    EXPECT_EQ(faultText<Show>(R"({"_embedded":{"seriesList":[{"id":"1","_links":{}},{"id":"2"}]}})"),
              "/_embedded/seriesList/1/_links lenient: Object, nothing, []\n");
}

TEST(ExplainingAShow, NamesTheWrongEntity) {
    EXPECT_EQ(faultText<Show>(R"({"title":1,"_entity":"video"})"), " required: show, video, failure\n");
}

TEST(ExplainingAShowsIndex, ReportsTheShowThatFailsItLast) {
    EXPECT_EQ(faultText<ShowsIndex>(
                  R"({"_links":1,"items":[{"items":[{"title":1},{"_entity":"video"}],"name":"A"}]})"),
              "/items/0/items/0/title lenient: String, number, empty\n"
              "/items/0/items/1 required: show, video, failure\n");
    EXPECT_EQ(faultText<ShowsIndex>(R"({"_links":{"alert":{"id":1}},"items":[]})"),
              "/_links/alert/id lenient: String, number, empty\n");
}

}  // namespace
}  // namespace VanticRestKit
