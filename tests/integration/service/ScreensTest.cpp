#include "ServiceContext.h"

#include "support/SampleService.h"

#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationRoutes.h>
#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <gmock/gmock.h>

namespace VanticRestKit::test {

namespace {

using ::testing::ElementsAre;

using Texts = std::vector<std::string>;

Texts titlesOf(const MixedCollection& collection) {
    Texts titles;
    for (const auto& item : collection.items()) {
        titles.push_back(item.as<Series>() ? item.showTitle().value_or("-") : item.title().value_or("-"));
    }
    return titles;
}

Texts rowsOf(const Category& screen) {
    Texts titles;
    for (const auto& row : screen.collections) titles.push_back(row.title);
    return titles;
}

template <class Item>
Texts namesOf(const std::vector<Item>& items) {
    Texts ids;
    for (const auto& item : items) {
        if constexpr (requires { *item.id; }) {
            ids.push_back(item.id.value_or("-"));
        } else {
            ids.push_back(item.id);
        }
    }
    return ids;
}

class SampleServiceScreens : public ::testing::Test {
protected:
    SampleService service;
    ServiceContext context{service.baseURL()};
};

TEST_F(SampleServiceScreens, TheHomeScreenHasAFeaturedCollectionAndItsRows) {
    const auto home = valueOf(Endpoint::Home(context));
    ASSERT_TRUE(home);
    EXPECT_EQ(home->title, "Home");
    EXPECT_EQ(home->selfHref, "/home");
    EXPECT_EQ(home->alertId, "storm");
    EXPECT_EQ(home->featuredCollection.type, MixedCollectionType::featured);
    EXPECT_THAT(titlesOf(home->featuredCollection),
                ElementsAre("Harbour Lights", "The Brass Octopus", "The Far Shore", "Small Planets",
                            "Kitchen on Wheels", "Parish Council"));
    ASSERT_TRUE(home->featuredCollection.highlightItem);
    EXPECT_EQ(home->featuredCollection.highlightItem->title(), "Harbour Lights");
    EXPECT_THAT(rowsOf(*home), ElementsAre("New this week", "Drama", "Films", "Whole series", "By the water",
                                           "Made by hand", "For children", "Live now"));
    EXPECT_EQ(home->collections[2].type, MixedCollectionType::movie);
}

TEST_F(SampleServiceScreens, ACollectionContainsShowsVideosAndSeriesInOrder) {
    const auto collection = [&](bool embed) {
        return valueOf(Endpoint::Collection({.collectionId = "1005", .embedHighlightItem = embed}, context));
    };
    const auto mixed = collection(true);
    ASSERT_TRUE(mixed);
    EXPECT_EQ(mixed->collectionId, "1005") << "a number, stored as a decimal string";
    const auto items = mixed->items();
    ASSERT_EQ(items.size(), 5U);
    EXPECT_TRUE(items[0].as<Show>());
    EXPECT_TRUE(items[1].as<Video>());
    EXPECT_TRUE(items[2].as<Series>());
    EXPECT_THAT(titlesOf(*mixed), ElementsAre("Harbour Lights", "Night Feeders", "Court of Reeds",
                                              "The Brass Octopus", "A Thousand Ponds"));
    EXPECT_TRUE(mixed->highlightItem);
    EXPECT_FALSE(collection(false)->highlightItem);
    EXPECT_EQ(mixed->collectionLink->href, mixed->href);
}

TEST_F(SampleServiceScreens, ACategoryAndAChannelAreTheSameKindOfScreen) {
    const auto category = valueOf(Endpoint::Category({.category = "film"}, context));
    ASSERT_TRUE(category);
    EXPECT_EQ(category->title, "Films");
    EXPECT_THAT(rowsOf(*category), ElementsAre("All of Films", "Films"));
    EXPECT_EQ(category->collections[0].mixedItems.size(), 8U);

    const auto channel = valueOf(Endpoint::Channel({.channel = "vantic-kids"}, context));
    ASSERT_TRUE(channel);
    EXPECT_EQ(channel->title, "Vantic Kids");
    EXPECT_EQ(channel->theme, Theme::light);
    EXPECT_THAT(rowsOf(*channel),
                ElementsAre("All of Vantic Kids", "From the beginning", "Whole series", "Films"));
}

TEST_F(SampleServiceScreens, AnUnknownScreenIsA404) {
    const auto missing = outcomeOf(Endpoint::Category({.category = "opera"}, context));
    ASSERT_TRUE(missing && !*missing);
    EXPECT_TRUE(missing->error().is404Error());
}

TEST_F(SampleServiceScreens, NavigationListsChannelsAndCategoriesWithTheirPictures) {
    const auto channels = valueOf(Endpoint::Navigation({.type = NavigationType::channels}, context));
    ASSERT_TRUE(channels);
    EXPECT_EQ(channels->selfHref, "/navigation/channels");
    EXPECT_THAT(namesOf(channels->items),
                ElementsAre("vantic-one", "vantic-two", "vantic-plus", "vantic-kids", "vantic-news"));
    ASSERT_EQ(channels->items[0].images.size(), 1U);
    EXPECT_EQ(channels->items[0].images[0].url, channels->items[0].logoUrl);
    const auto categories = valueOf(Endpoint::Navigation({.type = NavigationType::categories}, context));
    ASSERT_TRUE(categories);
    EXPECT_EQ(categories->items.size(), 7U);
}

TEST_F(SampleServiceScreens, TheMainMenuIsATreeWithTheRequestedChannels) {
    const auto menu =
        valueOf(Endpoint::NavigationMainMenuList({.channels = "vantic-one,vantic-kids"}, context));
    ASSERT_TRUE(menu);
    EXPECT_THAT(namesOf(menu->items),
                ElementsAre("home", "channels", "categories", "live", "search", "mylist"));
    ASSERT_TRUE(menu->items[1].items);
    EXPECT_THAT(namesOf(*menu->items[1].items), ElementsAre("vantic-one", "vantic-kids"));
    EXPECT_TRUE(menu->items[1].items->front().images);
    EXPECT_FALSE(menu->items[0].items);
}

TEST_F(SampleServiceScreens, BrowseGroupsTheNavigationLists) {
    const auto browse = valueOf(Endpoint::Browse(context));
    ASSERT_TRUE(browse);
    EXPECT_EQ(browse->href, "/browse");
    EXPECT_THAT(namesOf(browse->items), ElementsAre("channels", "categories"));
    EXPECT_EQ(browse->items[0].items,
              valueOf(Endpoint::Navigation({.type = NavigationType::channels}, context))->items);
    EXPECT_EQ(browse->items[0].accessibilityText, "Browse by channel");
    EXPECT_EQ(browse->items[1].accessibilityText, "");
}

TEST_F(SampleServiceScreens, AHomeScreenWithUnknownEntitiesAndFaultyElementsKeepsTheValidOnes) {
    const auto plain = valueOf(Endpoint::Home(context));
    service.addFault({{"path", "v2/home"}, {"fault", "oddities"}});
    // The regular screen may be cached for a minute.
    URLCache::shared()->removeAllCachedResponses();
    const auto odd = valueOf(Endpoint::Home(context));
    ASSERT_TRUE(plain && odd);
    EXPECT_EQ(rowsOf(*odd), rowsOf(*plain));
    EXPECT_EQ(odd->featuredCollection.type, MixedCollectionType::standard);
    EXPECT_FALSE(odd->featuredCollection.highlightItem);

    const auto& water = odd->collections[4];
    const auto items = water.items();
    ASSERT_EQ(items.size(), 5U) << "one element was added, the last video is dropped";
    ASSERT_TRUE(items[0].as<Series>()) << "an unknown entity that decodes as a series is one";
    EXPECT_EQ(items[0].title(), "Win a boat");
    ASSERT_TRUE(items[1].as<Show>());
    EXPECT_EQ(items[1].title(), "Harbour Lights");
    EXPECT_FALSE(items[1].showId());
    EXPECT_FALSE(items[1].subtype());
    EXPECT_EQ(items[1].as<Show>()->theme, Theme::default_);
    EXPECT_EQ(items[2].houseNumber(), "BB0102");
    EXPECT_EQ(items[3].showTitle(), "Court of Reeds");
    EXPECT_EQ(items[4].title(), "The Brass Octopus");
}

TEST_F(SampleServiceScreens, AHomeScreenFailsIfOneRowHasNoTitle) {
    service.addFault({{"path", "v2/home"}, {"fault", "null"}, {"at", "/_embedded/collections/4/title"}});
    const auto outcome = outcomeOf(Endpoint::Home(context));
    ASSERT_TRUE(outcome && !*outcome);
    EXPECT_EQ(outcome->error().kind(), LoaderError::Kind::failedToDecode);
}

}  // namespace

}  // namespace VanticRestKit::test
