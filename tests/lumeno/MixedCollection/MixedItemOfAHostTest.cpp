// Lists filled by a host, also with elements that are not collection items.

#include <gtest/gtest.h>
#include <lumeno/MixedCollection/MixedCollectionRules.h>

#include <memory>

namespace VanticRestKit {
namespace {

/// A host's own element, which is not a collection item.
struct Advertisement {
    std::string text{};
};

MixedCollection holding(std::vector<MixedItem> items) {
    return MixedCollection({.collectionId = std::nullopt,
                            .title = "t",
                            .mixedItems = std::move(items),
                            .href = std::nullopt,
                            .type = MixedCollectionType::standard,
                            .description = std::nullopt,
                            .thumbnail = std::nullopt,
                            .banner = std::nullopt,
                            .collectionLink = std::nullopt,
                            .highlightItem = std::nullopt,
                            .alertId = std::nullopt});
}

TEST(AForeignElement, IsKeptInMixedItemsButNotInItems) {
    const MixedCollection made =
        holding({Advertisement{"buy"}, Show{.title = "a"}, 7, std::string("x"), Video{.videoId = "v"},
                 Advertisement{"more"}, Series{.seriesId = "s"}});
    ASSERT_EQ(made.mixedItems.size(), 7U);
    EXPECT_EQ(made.items(), (std::vector<CollectionItem>{Show{.title = "a"}, Video{.videoId = "v"},
                                                         Series{.seriesId = "s"}}));
    ASSERT_NE(made.mixedItems[0].as<Advertisement>(), nullptr);
    EXPECT_EQ(made.mixedItems[0].as<Advertisement>()->text, "buy");
    ASSERT_NE(made.mixedItems[2].as<int>(), nullptr);
    EXPECT_EQ(*made.mixedItems[2].as<int>(), 7);
    EXPECT_EQ(made.mixedItems[0].item(), std::nullopt);
}

TEST(AForeignElement, GivesNoItemsIfThereIsNothingElse) {
    EXPECT_TRUE(holding({Advertisement{}, 1.5}).items().empty());
    EXPECT_TRUE(holding(std::vector<MixedItem>()).items().empty());
}

TEST(AnElementOfAHostsList, IsReturnedOnlyAsItsOwnType) {
    const MixedItem foreign = Advertisement{"a"};
    EXPECT_NE(foreign.as<Advertisement>(), nullptr);
    EXPECT_EQ(foreign.as<Show>(), nullptr);
    EXPECT_EQ(foreign.as<int>(), nullptr);
    const MixedItem show = Show{.title = "a"};
    ASSERT_NE(show.as<Show>(), nullptr);
    EXPECT_EQ(show.as<Video>(), nullptr);
    EXPECT_EQ(show.as<Advertisement>(), nullptr);
    // A collection item keeps its type.
    const MixedItem item = CollectionItem(Video{.videoId = "v"});
    ASSERT_NE(item.as<Video>(), nullptr);
    EXPECT_EQ(item.as<Video>()->videoId, "v");
}

TEST(AnElementOfAHostsList, EqualsItsCopiesAndEqualCollectionItems) {
    const MixedItem foreign = Advertisement{"a"};
    const MixedItem copy = foreign;
    EXPECT_EQ(copy, foreign);
    // Separately created elements cannot be compared, since nothing is known about their type.
    EXPECT_NE(foreign, MixedItem(Advertisement{"a"}));
    EXPECT_EQ(MixedItem(Show{.title = "a"}), MixedItem(Show{.title = "a"}));
    EXPECT_NE(MixedItem(Show{.title = "a"}), MixedItem(Show{.title = "b"}));
    EXPECT_NE(MixedItem(Show{.title = "a"}), foreign);
}

TEST(AnElementOfAHostsList, OutlivesTheList) {
    MixedItem kept = 0;
    {
        const MixedCollection made = holding({Advertisement{std::string(100, 'a')}});
        kept = made.mixedItems.front();
    }
    ASSERT_NE(kept.as<Advertisement>(), nullptr);
    EXPECT_EQ(kept.as<Advertisement>()->text, std::string(100, 'a'));
}

}  // namespace
}  // namespace VanticRestKit
