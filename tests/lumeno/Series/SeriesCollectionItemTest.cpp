// A series as an element of a collection.

#include <gtest/gtest.h>
#include <lumeno/Series/SeriesRules.h>

namespace VanticRestKit {
namespace {

using Text = std::optional<std::string>;

TEST(SeriesAsACollectionItem, HasTheMembersOfItsFields) {
    std::optional<Series> series = test::decoded<Series>(test::fullDocument(test::serieses()));
    ASSERT_TRUE(series);
    series->deeplinkHref = "/show/slug/series/1";
    // Differs from the other number of a series.
    series->episodeCount = 6;
    const CollectionItem item = *series;
    EXPECT_EQ(item.selfHref(), "_links.self.href");
    EXPECT_EQ(item.deeplinkHref(), "/show/slug/series/1");
    EXPECT_EQ(item.title(), "title");
    EXPECT_EQ(item.displayTitle(), "displayTitle");
    EXPECT_EQ(item.thumbnail(), "thumbnail");
    EXPECT_EQ(item.showTitle(), "showTitle");
    EXPECT_EQ(item.showId(), 120U);
    EXPECT_EQ(item.playableVideo(),
              (DirectPlayableVideo{.id = "a", .href = "b", .playTitle = "_links.highlightVideo"}));
    EXPECT_EQ(item.classification(), "classification");
    EXPECT_EQ(item.kickerTitle(), "kickerTitle");
    EXPECT_EQ(item.displaySubtitle(), "displaySubtitle");
    EXPECT_EQ(item.description(), "description");
    EXPECT_EQ(item.episodeCount(), 6U);
    EXPECT_EQ(item.tags(), (std::vector<std::string>{"a", "tags"}));
    EXPECT_EQ(item.showHref(), "_links.show.href");
    EXPECT_EQ(item.channel(), "channel");
    EXPECT_EQ(item.channelTitle(), "channelTitle");
    EXPECT_EQ(item.derivedShowSlug(), "slug");
}

TEST(SeriesAsACollectionItem, KeepsTheDefaultsOfTheOtherMembers) {
    const auto series = test::decoded<Series>(
        R"({"id":"1","_links":{"categories":[{"href":"c"}]},"type":"series","status":{"title":"t","theme":"live"},)"
        R"("captions":true,"seriesTitle":"x","houseNumber":"x","duration":1,"displayDuration":"x","slug":"x",)"
        R"("displayDurationAccessible":"x","availability":"x","thumbnails":{"portrait":"x","portraitTitled":"x",)"
        R"("episodePortrait":"x","character1":"x","character2":"x"},"updated":"2020-01-02 03:04:05","broadcastInfo":"x"})");
    ASSERT_TRUE(series);
    const CollectionItem item = *series;
    EXPECT_EQ(item.subtype(), std::nullopt);
    EXPECT_EQ(item.status(), std::nullopt);
    EXPECT_FALSE(item.captionsAvailable());
    EXPECT_EQ(item.duration(), std::nullopt);
    EXPECT_EQ(item.updated(), std::nullopt);
    EXPECT_EQ(item.categoryLinks(), std::vector<Link>());
    for (const Text& none :
         {item.seriesTitle(), item.houseNumber(), item.displayDuration(), item.displayDurationAccessible(),
          item.availability(), item.portraitThumbnail(), item.portraitTitledThumbnail(),
          item.episodePortraitThumbnail(), item.character1Thumbnail(), item.character2Thumbnail(),
          item.slug(), item.broadcastInfo()}) {
        EXPECT_EQ(none, std::nullopt);
    }
}

TEST(SeriesAsACollectionItem, CanBeExtracted) {
    const Series series{.seriesId = "1", .title = "t"};
    const CollectionItem item = series;
    ASSERT_NE(item.as<Series>(), nullptr);
    EXPECT_EQ(*item.as<Series>(), series);
    EXPECT_EQ(item.as<Video>(), nullptr);
}

}  // namespace
}  // namespace VanticRestKit
