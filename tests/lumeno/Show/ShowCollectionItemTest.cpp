// A show as an element of a collection.

#include <gtest/gtest.h>
#include <lumeno/Show/ShowRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

using Text = std::optional<std::string>;

TEST(ShowAsACollectionItem, HasTheMembersOfItsFields) {
    const test::TemporaryZone utc("UTC0");
    std::optional<Show> show = test::decoded<Show>(test::fullDocument(test::shows()));
    ASSERT_TRUE(show);
    // Differs from the other numbers of a show.
    show->duration = 60;
    show->episodeCount = 6;
    const CollectionItem item = *show;
    EXPECT_EQ(item.selfHref(), "_links.self.href");
    EXPECT_EQ(item.deeplinkHref(), "_links.deeplink.href");
    EXPECT_EQ(item.title(), "title");
    EXPECT_EQ(item.displayTitle(), "displayTitle");
    EXPECT_EQ(item.thumbnail(), "thumbnail");
    EXPECT_EQ(item.showId(), 120U);
    EXPECT_EQ(item.playableVideo(),
              (DirectPlayableVideo{.id = "a", .href = "b", .playTitle = "_links.highlightVideo"}));
    EXPECT_EQ(item.subtype(), LumenoSubtype::series);
    EXPECT_EQ(item.status(), (Status{"status", StatusTheme::live}));
    EXPECT_TRUE(item.captionsAvailable());
    EXPECT_EQ(item.classification(), "classification");
    EXPECT_EQ(item.kickerTitle(), "kickerTitle");
    EXPECT_EQ(item.duration(), 60U);
    EXPECT_EQ(item.displayDuration(), "displayDuration");
    EXPECT_EQ(item.displayDurationAccessible(), "displayDurationAccessible");
    EXPECT_EQ(item.portraitThumbnail(), "thumbnails.portrait");
    EXPECT_EQ(item.portraitTitledThumbnail(), "thumbnails.portraitTitled");
    EXPECT_EQ(item.character1Thumbnail(), "thumbnails.character1");
    EXPECT_EQ(item.character2Thumbnail(), "thumbnails.character2");
    EXPECT_EQ(item.updated(), Date(std::chrono::duration<double>(1577934245)));
    EXPECT_EQ(item.description(), "description");
    EXPECT_EQ(item.episodeCount(), 6U);
    EXPECT_EQ(item.slug(), "slug");
    EXPECT_EQ(item.broadcastInfo(), "broadcastInfo");
    ASSERT_EQ(item.categoryLinks().size(), 2U);
    EXPECT_EQ(item.categoryLinks(), show->categoryLinks);
    EXPECT_EQ(item.tags(), (std::vector<std::string>{"a", "tags"}));
    EXPECT_EQ(item.channel(), "channel");
    EXPECT_EQ(item.channelTitle(), "channelTitle");
}

TEST(ShowAsACollectionItem, HasItsComputedMembers) {
    const CollectionItem item = Show{.title = "t", .displayTitle = "d", .selfHref = "/show/linked"};
    EXPECT_EQ(item.showTitle(), "t");
    EXPECT_EQ(item.showHref(), "/show/linked");
    EXPECT_EQ(item.derivedShowSlug(), "linked");
    EXPECT_EQ(CollectionItem(Show{.slug = "own", .selfHref = "/show/linked"}).derivedShowSlug(), "own");
}

TEST(ShowAsACollectionItem, KeepsTheDefaultsOfTheOtherMembers) {
    const auto show = test::decoded<Show>(
        R"({"displaySubtitle":"x","seriesTitle":"x","houseNumber":"x","availability":"x",)"
        R"("thumbnails":{"episodePortrait":"x"}})");
    ASSERT_TRUE(show);
    const CollectionItem item = *show;
    for (const Text& none : {item.displaySubtitle(), item.seriesTitle(), item.houseNumber(),
                             item.availability(), item.episodePortraitThumbnail()}) {
        EXPECT_EQ(none, std::nullopt);
    }
}

TEST(ShowAsACollectionItem, CanBeExtracted) {
    const Show show{.showId = 7, .title = "t"};
    const CollectionItem item = show;
    ASSERT_NE(item.as<Show>(), nullptr);
    EXPECT_EQ(*item.as<Show>(), show);
    EXPECT_EQ(item.as<Series>(), nullptr);
    EXPECT_EQ(item.as<Video>(), nullptr);
}

}  // namespace
}  // namespace VanticRestKit
