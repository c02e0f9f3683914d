// The main menu: a tree in which no fault is tolerated.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;
using Item = NavigationMainMenuItem;
using Image = NavigationMainMenuItemImage;

test::EntityRules images() {
    return {.type = test::decodable<Image>,
            .minimal = R"({"id":"i","url":"u","accessibilityText":"t"})",
            .fields = {{"id", "id", Strictness::required, test::text()},
                       {"url", "url", Strictness::required, test::text()},
                       {"accessibilityText", "accessibilityText", Strictness::required, test::text()}}};
}

std::string itemText(const char* id) { return valueText(Item{.id = id}); }

test::Shape children(const char* empty) {
    const Item nested{.id = "$", .items = {{Item{.id = "b", .items = std::vector<Item>()}}}};
    return test::listOf(empty,
                        {{R"([{"id":"$","items":[{"id":"b","items":[]}]},{"id":"c","items":null}])",
                          "[" + valueText(nested) + "," + itemText("c") + "]"},
                         {"[]", "[]"}},
                        {R"({"title":"x"})", "keyNotFound", "/id"});
}

test::Shape pictures() {
    return test::listOf("null",
                        {{R"([{"id":"$","url":"u","accessibilityText":""}])",
                          R"([{"id":"$","url":"u","accessibilityText":""}])"},
                         {"[]", "[]"}},
                        {R"({"id":"i","url":"u"})", "keyNotFound", "/accessibilityText"});
}

test::FieldRule optionalText(const char* name) { return {name, name, Strictness::optional, test::text()}; }

test::EntityRules items() {
    return {.type = test::decodable<Item>,
            .minimal = R"({"id":"i"})",
            .fields = {{"id", "id", Strictness::required, test::text()},
                       optionalText("title"),
                       optionalText("accessibilityText"),
                       optionalText("logoUrl"),
                       optionalText("path"),
                       {"items", "items", Strictness::optional, children("null")},
                       {"images", "images", Strictness::optional, pictures()}}};
}

test::EntityRules lists() {
    return {.type = test::decodable<NavigationMainMenuList>,
            .minimal = R"({"items":[]})",
            .fields = {{"items", "items", Strictness::required, children("[]")}}};
}

TEST(NavigationMainMenuItemImage, HasThreeRequiredFields) {
    test::expectDeclaredFields(images());
    test::expectFieldsInEveryState(images());
    test::expectAnObjectOnly(test::decodable<Image>);
}

TEST(NavigationMainMenuItemImage, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(images(), {{"id", "1"}, {"url", "null"}, {"accessibilityText", "[]"}});
}

TEST(NavigationMainMenuItemImage, CanBeInitializedInDeclaredOrder) {
    const Image image{.id = "a", .url = "b", .accessibilityText = "c"};
    EXPECT_EQ(valueText(image), R"({"id":"a","url":"b","accessibilityText":"c"})");
    EXPECT_EQ(decoded<Image>(valueText(image)), image);
    EXPECT_NE(image, (Image{.id = "a", .url = "b", .accessibilityText = "d"}));
}

TEST(NavigationMainMenuItem, HasSevenFields) { test::expectDeclaredFields(items()); }

TEST(NavigationMainMenuItem, ReadsEachFieldFromItsKeyAndFailsForAnyWrongType) {
    test::expectFieldsInEveryState(items());
    test::expectAnObjectOnly(test::decodable<Item>);
}

TEST(NavigationMainMenuItem, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(items(), {{"id", "1"},
                                        {"title", "[]"},
                                        {"accessibilityText", "true"},
                                        {"logoUrl", "{}"},
                                        {"path", "2"},
                                        {"items", "[{}]"},
                                        {"images", "[7]"}});
}

TEST(NavigationMainMenuItem, CanBeInitializedInDeclaredOrder) {
    const Item item{.id = "a",
                    .title = "b",
                    .accessibilityText = "c",
                    .logoUrl = "d",
                    .path = "e",
                    .items = {{Item{.id = "f"}}},
                    .images = {{Image{.id = "g", .url = "h", .accessibilityText = "i"}}}};
    EXPECT_EQ(valueText(item),
              R"({"id":"a","title":"b","accessibilityText":"c","logoUrl":"d","path":"e","items":[)" +
                  itemText("f") + R"(],"images":[{"id":"g","url":"h","accessibilityText":"i"}]})");
    EXPECT_EQ(decoded<Item>(valueText(item)), item);
    Item other = item;
    other.items->front().id = "x";
    EXPECT_NE(other, item);
}

TEST(NavigationMainMenuList, HasOneRequiredField) {
    test::expectDeclaredFields(lists());
    test::expectFieldsInEveryState(lists());
    test::expectAnObjectOnly(test::decodable<NavigationMainMenuList>);
}

TEST(NavigationMainMenuList, CanHaveAnEmptyListOfItemsButNotNone) {
    EXPECT_EQ(decoded<NavigationMainMenuList>(R"({"items":[]})"), NavigationMainMenuList{});
    EXPECT_EQ(failureOf<NavigationMainMenuList>("{}"), R"(keyNotFound ["items"])");
}

TEST(NavigationMainMenuList, NeverReadsLinks) {
    EXPECT_EQ(decoded<NavigationMainMenuList>(R"({"items":[],"_links":7})"), NavigationMainMenuList{});
}

TEST(NavigationMainMenuList, DistinguishesAbsentListsFromEmptyOnes) {
    EXPECT_EQ(
        decoded<NavigationMainMenuList>(R"({"items":[{"id":"a"}]})"),
        (NavigationMainMenuList{.items = {Item{.id = "a", .items = std::nullopt, .images = std::nullopt}}}));
    EXPECT_EQ(decoded<NavigationMainMenuList>(R"({"items":[{"id":"a","items":[],"images":[]}]})"),
              (NavigationMainMenuList{
                  .items = {Item{.id = "a", .items = std::vector<Item>(), .images = std::vector<Image>()}}}));
}

TEST(NavigationMainMenuList, FailsForAChildWithoutAnId) {
    EXPECT_EQ(failureOf<NavigationMainMenuList>(R"({"items":[{"id":"a","items":[{"title":"x"}]}]})"),
              R"(keyNotFound ["items",0,"items",0,"id"])");
}

TEST(NavigationMainMenuList, FailsForATitleOfAWrongTypeAlthoughItIsOptional) {
    EXPECT_EQ(failureOf<NavigationMainMenuList>(R"({"items":[{"id":"a","title":5}]})"),
              R"(typeMismatch ["items",0,"title"])");
    EXPECT_EQ(failureOf<NavigationMainMenuList>(R"({"items":[{"id":"a","title":null}]})"), "");
}

TEST(NavigationMainMenuList, FailsForAPictureWithoutADescriptionAtAnyDepth) {
    EXPECT_EQ(failureOf<NavigationMainMenuList>(R"({"items":[{"id":"a","images":[{"id":"i","url":"u"}]}]})"),
              R"(keyNotFound ["items",0,"images",0,"accessibilityText"])");
    EXPECT_EQ(
        failureOf<NavigationMainMenuList>(
            R"({"items":[{"id":"a"},{"id":"b","items":[{"id":"c","items":[{"id":"d","images":[{"id":"i","url":"u"}]}]}]}]})"),
        R"(keyNotFound ["items",1,"items",0,"items",0,"images",0,"accessibilityText"])");
}

TEST(NavigationMainMenuList, CanBeInitializedWithItsItems) {
    const NavigationMainMenuList list{.items = {Item{.id = "a", .items = {{Item{.id = "b"}}}}}};
    EXPECT_EQ(decoded<NavigationMainMenuList>(R"({"items":[{"id":"a","items":[{"id":"b"}]}]})"), list);
    EXPECT_NE(list, NavigationMainMenuList{});
}

}  // namespace
}  // namespace VanticRestKit
