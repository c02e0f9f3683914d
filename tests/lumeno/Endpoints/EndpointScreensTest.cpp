// Requests for screens, collections and menus, and the handling of the responses.

#include <lumeno/Endpoints/Sent.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationRoutes.h>

#include <type_traits>

namespace VanticRestKit {
namespace {

using test::answered;
using test::CatalogueContext;
using test::expectErrors;
using test::sent;

TEST(EndpointCollection, RequestsTheCollectionWithItsHighlightItemIfWanted) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Collection({.collectionId = "xyz", .embedHighlightItem = true}, context);
              }),
              "GET https://api.example.test/v2/collection/xyz?embed=highlightItem");
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Collection({.collectionId = "xyz", .embedHighlightItem = false}, context);
              }),
              "GET https://api.example.test/v2/collection/xyz");
}

TEST(EndpointCollection, DecodesACollection) {
    const CatalogueContext context;
    const auto collection = answered(
        context, Endpoint::Collection({.collectionId = "1", .embedHighlightItem = true}, context),
        R"({"id":1,"title":"t","items":[{"_entity":"show"},7],"_embedded":{"highlightItem":{"title":"h"}}})");
    ASSERT_TRUE(collection);
    EXPECT_EQ(collection->collectionId, "1");
    EXPECT_EQ(collection->items().size(), 1U);
    ASSERT_TRUE(collection->highlightItem);
    EXPECT_EQ(collection->highlightItem->title(), "h");
}

TEST(EndpointCollection, FailsToDecodeWithoutATitle) {
    expectErrors(
        [](const Context& context) {
            return Endpoint::Collection({.collectionId = "1", .embedHighlightItem = false}, context);
        },
        "{}");
}

TEST(EndpointCategoryAndChannel, RequestDifferentPathsForTheSameNameAndDecodeOneEntity) {
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Category({.category = "x"}, context); }),
              "GET https://api.example.test/v2/category/x");
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Channel({.channel = "x"}, context); }),
              "GET https://api.example.test/v2/channel/x");
    const test::NoRequestContext context;
    static_assert(std::is_same_v<decltype(Endpoint::Category({.category = "x"}, context)),
                                 decltype(Endpoint::Channel({.channel = "x"}, context))>);
    static_assert(std::is_same_v<decltype(Endpoint::Home(context)), std::optional<Resource<Category>>>);
}

TEST(EndpointHome, RequestsTheHomeScreen) {
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Home(context); }),
              "GET https://api.example.test/v2/home");
}

const char* const screen =
    R"({"title":"t","_embedded":{"featuredCollection":{"title":"f"},"collections":[{"title":"c"}]},)"
    R"("_links":{"self":{"href":"h"}}})";

template <class Make>
void expectAScreen(Make make) {
    const CatalogueContext context;
    const auto category = answered(context, make(context), screen);
    ASSERT_TRUE(category);
    EXPECT_EQ(category->title, "t");
    EXPECT_EQ(category->selfHref, "h");
    EXPECT_EQ(category->featuredCollection.title, "f");
    EXPECT_EQ(category->collections.size(), 1U);
    expectErrors(make, R"({"title":"t"})");
}

TEST(EndpointCategory, DecodesACategory) {
    expectAScreen([](const Context& context) { return Endpoint::Category({.category = "x"}, context); });
}

TEST(EndpointChannel, DecodesACategory) {
    expectAScreen([](const Context& context) { return Endpoint::Channel({.channel = "x"}, context); });
}

TEST(EndpointHome, DecodesACategory) {
    expectAScreen([](const Context& context) { return Endpoint::Home(context); });
}

TEST(EndpointNavigation, RequestsTheListOfChannelsOrCategories) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Navigation({.type = NavigationType::channels}, context);
              }),
              "GET https://api.example.test/v2/navigation/channels");
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Navigation({.type = NavigationType::categories}, context);
              }),
              "GET https://api.example.test/v2/navigation/categories");
}

TEST(EndpointNavigation, DecodesAList) {
    const auto make = [](const Context& context) {
        return Endpoint::Navigation({.type = NavigationType::channels}, context);
    };
    const CatalogueContext context;
    const auto list =
        answered(context, make(context),
                 R"({"items":[{"_links":{"self":{"href":"a"}}}],"_links":{"self":{"href":"h"}}})");
    ASSERT_TRUE(list);
    EXPECT_EQ(*list, (NavigationList{.selfHref = "h", .items = {{.selfHref = "a"}}}));
    expectErrors(make, R"({"items":[]})");
}

TEST(EndpointNavigationMainMenuList, RequestsAPersonalMenuOfTheChannels) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::NavigationMainMenuList({.channels = "a,b"}, context);
              }),
              "GET https://api.example.test/v2/navigation/mobile?include=personalize&channel=a,b");
}

TEST(EndpointNavigationMainMenuList, DecodesAMenu) {
    const auto make = [](const Context& context) {
        return Endpoint::NavigationMainMenuList({.channels = "a"}, context);
    };
    const CatalogueContext context;
    const auto menu = answered(context, make(context), R"({"items":[{"id":"a","items":[{"id":"b"}]}]})");
    ASSERT_TRUE(menu);
    EXPECT_EQ(*menu, (NavigationMainMenuList{.items = {{.id = "a", .items = {{{.id = "b"}}}}}}));
    expectErrors(make, R"({"items":[{"id":"a","title":5}]})");
}

TEST(EndpointBrowse, RequestsTheIndex) {
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Browse(context); }),
              "GET https://api.example.test/v2/browse");
}

TEST(EndpointBrowse, DecodesAnIndex) {
    const auto make = [](const Context& context) { return Endpoint::Browse(context); };
    const CatalogueContext context;
    const auto index =
        answered(context, make(context), R"({"_links":{"self":{}},"_embedded":{"items":[{"title":"a"}]}})");
    ASSERT_TRUE(index);
    EXPECT_EQ(index->href, "");
    ASSERT_EQ(index->items.size(), 1U);
    EXPECT_EQ(index->items[0].title, "a");
    expectErrors(make, R"({"_links":{"self":{}}})");
}

TEST(EndpointsOfScreens, AreAbsentIfTheContextMakesNoRequest) {
    const test::NoRequestContext context;
    EXPECT_FALSE(Endpoint::Collection({.collectionId = "a", .embedHighlightItem = true}, context));
    EXPECT_FALSE(Endpoint::Category({.category = "a"}, context));
    EXPECT_FALSE(Endpoint::Channel({.channel = "a"}, context));
    EXPECT_FALSE(Endpoint::Home(context));
    EXPECT_FALSE(Endpoint::Navigation({.type = NavigationType::channels}, context));
    EXPECT_FALSE(Endpoint::NavigationMainMenuList({.channels = "a"}, context));
    EXPECT_FALSE(Endpoint::Browse(context));
}

}  // namespace
}  // namespace VanticRestKit
