// A video as an element of a collection.

#include <gtest/gtest.h>
#include <lumeno/Video/VideoRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

TEST(VideoAsACollectionItem, HasTheMembersOfItsFields) {
    const test::TemporaryZone utc("UTC0");
    std::optional<Video> video = test::decoded<Video>(test::fullDocument(test::videos()));
    ASSERT_TRUE(video);
    video->deeplinkHref = "show/slug/third";
    // Differs from the other numbers and Booleans of a video.
    video->duration = 60;
    video->showId = 7;
    video->captionsOnAkamai = false;
    video->playable = false;
    const CollectionItem item = *video;
    EXPECT_EQ(item.selfHref(), "_links.self.href");
    EXPECT_EQ(item.deeplinkHref(), "show/slug/third");
    EXPECT_EQ(item.title(), "title");
    EXPECT_EQ(item.displayTitle(), "displayTitle");
    EXPECT_EQ(item.thumbnail(), "thumbnail");
    EXPECT_EQ(item.showTitle(), "showTitle");
    EXPECT_EQ(item.showId(), 7U);
    ASSERT_TRUE(item.playableVideo());
    EXPECT_EQ(item.playableVideo(), video->playableVideo);
    EXPECT_EQ(item.subtype(), LumenoSubtype::episode);
    EXPECT_EQ(item.status(), (Status{"status", StatusTheme::live}));
    EXPECT_TRUE(item.captionsAvailable());
    EXPECT_EQ(item.classification(), "classification");
    EXPECT_EQ(item.kickerTitle(), "kickerTitle");
    EXPECT_EQ(item.displaySubtitle(), "displaySubtitle");
    EXPECT_EQ(item.seriesTitle(), "seriesTitle");
    EXPECT_EQ(item.houseNumber(), "houseNumber");
    EXPECT_EQ(item.duration(), 60U);
    EXPECT_EQ(item.displayDuration(), "displayDuration");
    EXPECT_EQ(item.displayDurationAccessible(), "displayDurationAccessible");
    EXPECT_EQ(item.availability(), "availability");
    EXPECT_EQ(item.portraitThumbnail(), "thumbnails.portrait");
    EXPECT_EQ(item.portraitTitledThumbnail(), "thumbnails.portraitTitled");
    EXPECT_EQ(item.episodePortraitThumbnail(), "thumbnails.episodePortrait");
    EXPECT_EQ(item.character1Thumbnail(), "thumbnails.character1");
    EXPECT_EQ(item.character2Thumbnail(), "thumbnails.character2");
    ASSERT_EQ(item.categoryLinks().size(), 2U);
    EXPECT_EQ(item.categoryLinks(), video->categoryLinks);
    EXPECT_EQ(item.tags(), (std::vector<std::string>{"a", "tags"}));
    EXPECT_EQ(item.showHref(), "_links.show.href");
    EXPECT_EQ(item.channel(), "channel");
    EXPECT_EQ(item.channelTitle(), "channelTitle");
    EXPECT_EQ(item.derivedShowSlug(), "third");
}

TEST(VideoAsACollectionItem, KeepsTheDefaultsOfTheOtherMembers) {
    const auto video =
        test::decoded<Video>(R"({"description":"d","slug":"s","episodeCount":3,"broadcastInfo":"b",)"
                             R"("updated":"2020-01-02 03:04:05","_links":{}})");
    ASSERT_TRUE(video);
    const CollectionItem item = *video;
    EXPECT_EQ(video->videoDescription, "d");
    EXPECT_EQ(item.description(), std::nullopt);
    EXPECT_EQ(item.updated(), std::nullopt);
    EXPECT_EQ(item.episodeCount(), std::nullopt);
    EXPECT_EQ(item.slug(), std::nullopt);
    EXPECT_EQ(item.broadcastInfo(), std::nullopt);
}

TEST(VideoAsACollectionItem, CanBeExtracted) {
    const Video video{.videoId = "v", .title = "t"};
    const CollectionItem item = video;
    ASSERT_NE(item.as<Video>(), nullptr);
    EXPECT_EQ(*item.as<Video>(), video);
}

}  // namespace
}  // namespace VanticRestKit
