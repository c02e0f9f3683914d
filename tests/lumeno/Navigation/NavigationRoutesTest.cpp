#include <lumeno/Routes.h>
#include <VanticRestKit/lumeno/Navigation/NavigationRoutes.h>

namespace VanticRestKit {
namespace {

using test::expectAGet;
using Items = std::vector<URLQueryItem>;

TEST(NavigationType, HasTwoCasesInOrderAndNoneForAnUnknownValue) {
    ASSERT_EQ(std::size(RawTexts<NavigationType>::cases), 2U);
    EXPECT_EQ(RawTexts<NavigationType>::cases[0].value, NavigationType::channels);
    EXPECT_EQ(RawTexts<NavigationType>::cases[1].value, NavigationType::categories);
    EXPECT_EQ(fromRawValue<NavigationType>("channels"), NavigationType::channels);
    EXPECT_EQ(fromRawValue<NavigationType>("categories"), NavigationType::categories);
    for (const char* const unknown : {"", "channel", "Channels", "mobile"}) {
        EXPECT_EQ(fromRawValue<NavigationType>(unknown), std::nullopt) << unknown;
    }
}

TEST(NavigationURI, AppendsTheRawValueOfTheTypeToThePath) {
    expectAGet(NavigationURI{.navigationType = NavigationType::channels}, "v2/navigation/channels");
    expectAGet(NavigationURI{.navigationType = NavigationType::categories}, "v2/navigation/categories");
}

TEST(NavigationMainMenuItemURI, SendsTheChannelsAsOneUnchangedString) {
    expectAGet(NavigationMainMenuItemURI({.channels = "a,b"}), "v2/navigation/mobile",
               {{"include", "personalize"}, {"channel", "a,b"}});
    expectAGet(NavigationMainMenuItemURI({.channels = " a&b=%20"}), "v2/navigation/mobile",
               {{"include", "personalize"}, {"channel", " a&b=%20"}});
}

TEST(NavigationMainMenuItemURI, SendsEmptyChannels) {
    expectAGet(NavigationMainMenuItemURI({.channels = ""}), "v2/navigation/mobile",
               {{"include", "personalize"}, {"channel", ""}});
}

TEST(NavigationMainMenuItemURI, SendsAPathThatWasSetUnchanged) {
    NavigationMainMenuItemURI route({.channels = "a"});
    route.path = "navigation/television";
    expectAGet(route, "navigation/television", {{"include", "personalize"}, {"channel", "a"}});
    route.path = "";
    expectAGet(route, "", {{"include", "personalize"}, {"channel", "a"}});
    EXPECT_NE(route, NavigationMainMenuItemURI({.channels = "a"}));
}

TEST(BrowseURI, HasOnlyAPath) { expectAGet(BrowseURI(), "v2/browse"); }

TEST(NavigationMainMenuItemURI, EqualsARouteWithTheSameFields) {
    const NavigationMainMenuItemURI one({.channels = "one"});
    EXPECT_EQ(one, NavigationMainMenuItemURI({.channels = "one"}));
    EXPECT_NE(one, NavigationMainMenuItemURI({.channels = "two"}));
    NavigationMainMenuItemURI elsewhere = one;
    elsewhere.path = "elsewhere";
    EXPECT_NE(one, elsewhere);
}

}  // namespace
}  // namespace VanticRestKit
