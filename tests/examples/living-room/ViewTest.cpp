#include "View.h"

#include <gtest/gtest.h>

namespace living_room {
namespace {

class ViewTest : public ::testing::Test {
protected:
    const Service service{URL("http://127.0.0.1:1"), DispatchQueue("view test")};
};

Video episode() {
    Video video;
    video.title = "Slack Water";
    video.showTitle = "Harbour Lights";
    video.displaySubtitle = "S1 E2 – Slack Water";
    video.selfHref = "/video/HL0102";
    video.thumbnail = "http://127.0.0.1:1/pictures/video/HL0102/landscape.svg";
    video.houseNumber = "HL0102";
    video.duration = 2732;
    video.playable = true;
    return video;
}

TEST_F(ViewTest, AnEpisodeHasTheTitleOfItsShow) {
    const Value tile = tileOf(CollectionItem(episode()), service);
    EXPECT_EQ(tile.at("kind"), "Video");
    EXPECT_EQ(tile.at("title"), "Harbour Lights");
    EXPECT_EQ(tile.at("subtitle"), "S1 E2 – Slack Water");
    EXPECT_EQ(tile.at("link"), "/video/HL0102");
    EXPECT_EQ(tile.at("picture"), "/pictures/video/HL0102/landscape.svg");
}

TEST_F(ViewTest, ASeriesOpensItsShow) {
    Series series;
    series.title = "Series 1";
    series.showTitle = "Harbour Lights";
    series.selfHref = "/series/111";
    series.showHref = "/show/harbour-lights";
    EXPECT_EQ(tileOf(CollectionItem(series), service).at("link"), "/show/harbour-lights?series=/series/111");
}

TEST_F(ViewTest, BadgesSayWhatIsNewExpiresOrCannotBePlayed) {
    Video video = episode();
    video.status = Status{.title = "New"};
    video.availability = "Expires in 3 days";
    const auto kinds = [&] {
        std::string all;
        const Value tile = tileOf(CollectionItem(video), service);
        for (const Value& badge : tile.at("badges")) all += badge.at("kind").get<std::string>() + " ";
        return all;
    };
    EXPECT_EQ(kinds(), "new expires ");
    video.playable = false;
    EXPECT_EQ(kinds(), "new unavailable ");
    video.status = Status{.title = "LIVE", .theme = StatusTheme::live};
    EXPECT_EQ(kinds(), "live unavailable ");
}

TEST_F(ViewTest, ProgressIsThatOfTheRecordAndNeverBeyondTheEnd) {
    HistoryData record;
    record.key = "HL0102";
    const auto position = [&]() -> int {
        return tilesOf({episode()}, {record}, service).at(0).at("progress").at("position");
    };
    record.progress = 90;
    EXPECT_EQ(position(), 90);
    record.progress = 9'999;
    EXPECT_EQ(position(), 2732);
    record.progress = 0;
    record.done = true;
    EXPECT_EQ(position(), 2732);
    EXPECT_FALSE(tilesOf({episode()}, {}, service).at(0).contains("progress"));
}

TEST_F(ViewTest, TheLibraryChoosesTheBestLevelThatHasAnAddress) {
    PlaylistItem item;
    item.streams.hls.sd = "http://127.0.0.1:1/hls/HL0102-sd.m3u8";
    item.streams.hls.hd720 = "https://media.example/HL0102-720.m3u8";
    const Value view = playlistItemOf(item, service);
    EXPECT_EQ(view.at("chosen"), "720");
    EXPECT_EQ(view.at("stream"), "https://media.example/HL0102-720.m3u8");
    ASSERT_EQ(view.at("levels").size(), 2U);
    EXPECT_EQ(view.at("levels").at(1).at("address"), "/hls/HL0102-sd.m3u8");
}

TEST_F(ViewTest, OnlyPicturesAndStreamsOfTheServicePassThroughTheHost) {
    for (const char* const path :
         {"/pictures/show/x/landscape.svg", "/hls/HL0102-sd.m3u8", "/captions/HL0102.vtt"}) {
        EXPECT_TRUE(isFilePath(path)) << path;
        EXPECT_EQ(fileLink(service.baseURL().absoluteString() + path, service), path);
    }
    for (const char* const path :
         {"", "/v2/time", "pictures/x", "/pictures/../v2/time", "/pictures/%2e%2e/v2",
          "http://other.example/pictures/x", "/_control/stop", "/pictures/x?y", "/hls"}) {
        EXPECT_FALSE(isFilePath(path)) << path;
        EXPECT_EQ(fileLink(service.baseURL().absoluteString() + path, service), "") << path;
    }
    EXPECT_EQ(fileLink("http://other.example/pictures/x.svg", service), "");
    EXPECT_EQ(fileLink("http://127.0.0.1:11/pictures/x.svg", service), "");
    EXPECT_EQ(fileLink(std::nullopt, service), "");
}

TEST_F(ViewTest, OnlyShowsAndVideosHaveScreens) {
    EXPECT_EQ(screenLink("/show/harbour-lights"), "/show/harbour-lights");
    EXPECT_EQ(screenLink("/video/HL0102"), "/video/HL0102");
    for (const char* const href : {"", "/series/111", "//other.example/show/x", "javascript:alert(1)"}) {
        EXPECT_EQ(screenLink(href), "") << href;
    }
}

}  // namespace
}  // namespace living_room
