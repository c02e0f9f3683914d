// Menus of the maximum document depth and deeper: an error but never a crash, even on a small stack.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/platform/json/DecodingError.h>

#include <platform/json/BothEngines.h>
#include <support/SmallStack.h>
#include <algorithm>

namespace VanticRestKit {
namespace {

using test::decodable;
using test::onASmallStack;
using test::Outcome;

/// Levels of the document: the list, its array, and an item and an array for each level of the menu.
constexpr std::size_t deepestMenu = 511 / 2;

/// A menu with this many levels of items, and `core` in the innermost one.
std::string menu(std::size_t levels, const std::string& core = R"({"id":"a"})") {
    std::string text = R"({"items":[)";
    for (std::size_t level = 1; level < levels; ++level) text += R"({"id":"a","items":[)";
    text += core;
    for (std::size_t level = 1; level < levels; ++level) text += "]}";
    return text + "]}";
}

/// Decodes a document with both engines on a thread with a small stack.
Outcome outcomeOf(const std::string& document) {
    Outcome outcome;
    onASmallStack([&] { outcome = test::decodeByBoth(decodable<NavigationMainMenuList>, Data(document)); });
    EXPECT_EQ(outcome.difference, "");
    return outcome;
}

std::size_t levelsOf(const NavigationMainMenuList& list) {
    std::size_t levels = 0;
    for (const auto* items = &list.items; !items->empty(); ++levels) {
        if (!items->front().items) return levels + 1;
        items = &*items->front().items;
    }
    return levels;
}

TEST(AMenuOfTheGreatestDepth, Decodes) {
    const std::string document = menu(deepestMenu);
    EXPECT_EQ(outcomeOf(document).failure, "");
    const auto list = test::decoded<NavigationMainMenuList>(document);
    ASSERT_TRUE(list);
    EXPECT_EQ(levelsOf(*list), deepestMenu);
}

TEST(AMenuOfTheGreatestDepth, CanBeCopiedComparedAndDestroyedOnASmallStack) {
    const Data document{menu(deepestMenu)};
    onASmallStack([&document] {
        const auto list = JSONDecoder().decode<NavigationMainMenuList>(document);
        ASSERT_TRUE(list);
        const NavigationMainMenuList copy = *list;
        EXPECT_EQ(copy, *list);
        EXPECT_EQ(levelsOf(copy), deepestMenu);
    });
}

TEST(AMenuOfTheGreatestDepth, FailsOnlyForItsInnermostItem) {
    const std::string failure = outcomeOf(menu(deepestMenu, R"({"title":"x"})")).failure;
    EXPECT_TRUE(failure.starts_with(R"(keyNotFound ["items",0,"items",0,"items",0,)")) << failure;
    EXPECT_TRUE(failure.ends_with(R"("items",0,"id"])")) << failure;
    EXPECT_EQ(static_cast<std::size_t>(std::count(failure.begin(), failure.end(), '0')), deepestMenu);
}

TEST(AMenuThatIsOneLevelTooDeep, IsAMalformedDocument) {
    EXPECT_EQ(outcomeOf(menu(deepestMenu + 1, R"({"id":"a"})")).failure, "dataCorrupted []");
}

TEST(AMenuOfAHundredThousandLevels, FailsWithoutACrash) {
    const std::string document = menu(100'000);
    EXPECT_EQ(outcomeOf(document).failure, "dataCorrupted []");
    onASmallStack([&document] {
        const auto list = JSONDecoder().decode<NavigationMainMenuList>(Data(document));
        ASSERT_FALSE(list);
        const auto* const error = list.error().as<DecodingError>();
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->kind(), DecodingError::Kind::dataCorrupted);
    });
}

TEST(AMenuOfAHundredThousandLevels, FailsIfItIsTruncated) {
    const std::string document = menu(100'000);
    EXPECT_EQ(outcomeOf(document.substr(0, document.size() / 2)).failure, "dataCorrupted []");
}

TEST(AMenuOfAHundredThousandLevels, FailsUnderAnIgnoredKey) {
    EXPECT_EQ(outcomeOf(R"({"items":[{"id":"a","other":)" + menu(100'000) + "}]}").failure,
              "dataCorrupted []");
}

}  // namespace
}  // namespace VanticRestKit
