// Flat lists of channels and of categories.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

test::FieldRule lenientText(const char* name) { return {name, name, Strictness::lenient, test::text()}; }

std::string imageText(const char* id) { return valueText(Image{.id = id}); }

test::Shape images() {
    return test::listOf(
        "[]",
        {{R"([{"id":"$"},{"id":12,"width":"1"}])", "[" + imageText("$") + "," + imageText("12") + "]"},
         {"[]", "[]"}},
        {"\"x\""});
}

test::EntityRules navigationItems() {
    return {.type = test::decodable<NavigationItem>,
            .minimal = R"({"_links":{"self":{"href":"h"}}})",
            .fields = {lenientText("id"),
                       lenientText("title"),
                       lenientText("accessibilityText"),
                       lenientText("logoUrl"),
                       lenientText("logoUrlWide"),
                       lenientText("path"),
                       {"selfHref", "_links.self.href", Strictness::required, test::text()},
                       {"images", "images", Strictness::lenient, images()}},
            .containers = {{"_links", Strictness::required}, {"_links.self", Strictness::required}}};
}

test::Shape items() {
    const NavigationItem first{.title = "t", .selfHref = "$"};
    const NavigationItem second{.selfHref = "b"};
    return test::listOf(
        "[]",
        {{R"([{"_links":{"self":{"href":"$"}},"title":"t","id":1},{"_links":{"self":{"href":"b"}}}])",
          "[" + valueText(first) + "," + valueText(second) + "]"},
         {"[]", "[]"}},
        {R"({"title":"x"})"});
}

test::EntityRules navigationLists() {
    return {.type = test::decodable<NavigationList>,
            .minimal = R"({"_links":{"self":{"href":"h"}}})",
            .fields = {{"selfHref", "_links.self.href", Strictness::required, test::text()},
                       {"items", "items", Strictness::lenient, items()}},
            .containers = {{"_links", Strictness::required}, {"_links.self", Strictness::required}}};
}

TEST(NavigationItem, HasEightFields) { test::expectDeclaredFields(navigationItems()); }

TEST(NavigationItem, ReadsEachFieldFromItsKeyAndRequiresOnlyTheSelfLink) {
    test::expectFieldsInEveryState(navigationItems());
    test::expectContainersInEveryState(navigationItems());
    test::expectAnObjectOnly(test::decodable<NavigationItem>);
}

TEST(NavigationItem, NeedsOnlyASelfLink) {
    EXPECT_EQ(decoded<NavigationItem>(R"({"_links":{"self":{"href":"h"}}})"),
              NavigationItem{.selfHref = "h"});
}

TEST(NavigationItem, FailsWithoutASelfLink) {
    EXPECT_EQ(failureOf<NavigationItem>(R"({"title":"t"})"), R"(keyNotFound ["_links"])");
    EXPECT_EQ(failureOf<NavigationItem>(R"({"title":"t","_links":{}})"), R"(keyNotFound ["_links","self"])");
    EXPECT_EQ(failureOf<NavigationItem>(R"({"title":"t","_links":{"self":{}}})"),
              R"(keyNotFound ["_links","self","href"])");
}

TEST(NavigationItem, DoesNotReadIdAndTitleFromNumbers) {
    EXPECT_EQ(decoded<NavigationItem>(R"({"id":1,"title":2,"_links":{"self":{"href":"h"}}})"),
              NavigationItem{.selfHref = "h"});
}

TEST(NavigationItem, HasNoImagesIfOneIsFaulty) {
    EXPECT_EQ(decoded<NavigationItem>(R"({"id":"i","images":[{"id":"a"},7],"_links":{"self":{"href":"h"}}})"),
              (NavigationItem{.id = "i", .selfHref = "h"}));
}

TEST(NavigationItem, CanBeInitializedInDeclaredOrder) {
    const NavigationItem item{.id = "a",
                              .title = "b",
                              .accessibilityText = "c",
                              .logoUrl = "d",
                              .logoUrlWide = "e",
                              .path = "f",
                              .selfHref = "g",
                              .images = {{.id = "h"}}};
    EXPECT_EQ(
        decoded<NavigationItem>(
            R"({"images":[{"id":"h"}],"_links":{"self":{"href":"g"}},"path":"f","logoUrlWide":"e","logoUrl":"d",)"
            R"("accessibilityText":"c","title":"b","id":"a"})"),
        item);
    EXPECT_EQ(valueText(item),
              R"({"id":"a","title":"b","accessibilityText":"c","logoUrl":"d","logoUrlWide":"e",)"
              R"("path":"f","selfHref":"g","images":[)" +
                  imageText("h") + "]}");
    EXPECT_NE(item, NavigationItem{.id = "a"});
}

TEST(NavigationList, HasTwoFields) { test::expectDeclaredFields(navigationLists()); }

TEST(NavigationList, ReadsEachFieldFromItsKeyAndRequiresOnlyTheSelfLink) {
    test::expectFieldsInEveryState(navigationLists());
    test::expectContainersInEveryState(navigationLists());
    test::expectAnObjectOnly(test::decodable<NavigationList>);
}

TEST(NavigationList, NeedsOnlyASelfLink) {
    EXPECT_EQ(decoded<NavigationList>(R"({"_links":{"self":{"href":"h"}}})"),
              NavigationList{.selfHref = "h"});
}

TEST(NavigationList, FailsWithoutASelfLink) {
    EXPECT_EQ(failureOf<NavigationList>(R"({"title":"t"})"), R"(keyNotFound ["_links"])");
    EXPECT_EQ(failureOf<NavigationList>(R"({"items":[],"_links":{"self":{"href":1}}})"),
              R"(typeMismatch ["_links","self","href"])");
}

TEST(NavigationList, LosesAllItemsIfOneHasNoSelfLink) {
    EXPECT_EQ(
        decoded<NavigationList>(
            R"({"items":[{"_links":{"self":{"href":"a"}}},{"title":"t"}],"_links":{"self":{"href":"h"}}})"),
        NavigationList{.selfHref = "h"});
    EXPECT_EQ(
        decoded<NavigationList>(
            R"({"_links":{"self":{"href":"h"}},"items":[{"_links":{}},{"_links":{"self":{"href":"a"}}}]})"),
        NavigationList{.selfHref = "h"});
}

TEST(NavigationList, CanBeInitializedInDeclaredOrder) {
    const NavigationList list{.selfHref = "h", .items = {{.selfHref = "a"}, {.id = "i", .selfHref = "b"}}};
    EXPECT_EQ(decoded<NavigationList>(
                  R"({"_links":{"self":{"href":"h"}},"items":[{"_links":{"self":{"href":"a"}}},)"
                  R"({"id":"i","_links":{"self":{"href":"b"}}}]})"),
              list);
    EXPECT_TRUE(valueText(list).starts_with(R"({"selfHref":"h","items":[{"id":null,)"));
    EXPECT_NE(list, NavigationList{.selfHref = "h"});
}

}  // namespace
}  // namespace VanticRestKit
