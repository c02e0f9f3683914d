// The browse index: optional fields have defaults, and a wrong type always fails.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>

#include <platform/json/FieldRules.h>
#include <type_traits>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::shown;
using test::Strictness;

/// A string that is empty by default.
test::Shape textOrNone() {
    test::Shape shape = test::text();
    shape.empty = "\"\"";
    return shape;
}

test::Shape entries() {
    const NavigationItem first{.title = "t", .selfHref = "$"};
    const NavigationItem second{.selfHref = ""};
    return test::listOf(
        "[]",
        {{R"([{"_links":{"self":{"href":"$"}},"title":"t","id":1},{"_links":{"self":{"href":""}}}])",
          "[" + valueText(first) + "," + valueText(second) + "]"},
         {"[]", "[]"}},
        {R"({"title":"x"})", "keyNotFound", "/_links"});
}

test::EntityRules groups() {
    return {.type = test::decodable<BrowseItem>,
            .minimal = "{}",
            .fields = {{"id", "id", Strictness::optional, textOrNone()},
                       {"title", "title", Strictness::optional, textOrNone()},
                       {"items", "items", Strictness::optional, entries()},
                       {"accessibilityText", "accessibilityText", Strictness::optional, textOrNone()}}};
}

test::EntityRules indexes() {
    const std::string rest = R"(,"items":[],"accessibilityText":""})";
    return {.type = test::decodable<BrowseList>,
            .minimal = R"({"_links":{"self":{}},"_embedded":{}})",
            .fields = {{"href", "_links.self.href", Strictness::optional, textOrNone()},
                       {"items", "_embedded.items", Strictness::optional,
                        test::listOf("[]",
                                     {{R"([{"id":"$"},{},{"title":"$","items":null}])",
                                       R"([{"id":"$","title":"")" + rest + R"(,{"id":"","title":"")" + rest +
                                           R"(,{"id":"","title":"$")" + rest + "]"},
                                      {"[]", "[]"}},
                                     {R"({"items":[{}]})", "keyNotFound", "/items/0/_links"})}},
            .containers = {{"_links", Strictness::required},
                           {"_links.self", Strictness::required},
                           {"_embedded", Strictness::required}}};
}

TEST(BrowseItem, HasFourFields) { test::expectDeclaredFields(groups()); }

TEST(BrowseItem, HasDefaultsForMissingFieldsAndFailsForAnyWrongType) {
    test::expectFieldsInEveryState(groups());
    test::expectAnObjectOnly(test::decodable<BrowseItem>);
}

TEST(BrowseItem, HasEmptyStringsAndNoEntriesForAnEmptyObject) {
    const char* const empty = R"({"id":"","title":"","items":[],"accessibilityText":""})";
    EXPECT_EQ(shown<BrowseItem>("{}"), empty);
    EXPECT_EQ(shown<BrowseItem>(R"({"id":null,"title":null,"items":null,"accessibilityText":null})"), empty);
}

TEST(BrowseItem, FailsForANumericId) {
    EXPECT_EQ(failureOf<BrowseItem>(R"({"id":5})"), R"(typeMismatch ["id"])");
}

TEST(BrowseItem, FailsForAnEntryWithoutLinksAndTheIndexWithIt) {
    EXPECT_EQ(failureOf<BrowseItem>(R"({"items":[{"title":"t"}]})"), R"(keyNotFound ["items",0,"_links"])");
    EXPECT_EQ(failureOf<BrowseList>(
                  R"({"_links":{"self":{}},"_embedded":{"items":[{},{"items":[{"title":"t"}]}]}})"),
              R"(keyNotFound ["_embedded","items",1,"items",0,"_links"])");
}

TEST(BrowseItem, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(
        groups(), {{"id", "1"}, {"title", "[]"}, {"items", "[{}]"}, {"accessibilityText", "false"}});
}

TEST(BrowseItem, IsEqualIfItsFieldsAreEqual) {
    EXPECT_EQ(decoded<BrowseItem>("{}"), decoded<BrowseItem>(R"({"id":"","x":1})"));
    EXPECT_NE(decoded<BrowseItem>("{}"), decoded<BrowseItem>(R"({"accessibilityText":"a"})"));
}

TEST(BrowseList, HasTwoFields) { test::expectDeclaredFields(indexes()); }

TEST(BrowseList, HasDefaultsForMissingFieldsButRequiresItsObjects) {
    test::expectFieldsInEveryState(indexes());
    test::expectContainersInEveryState(indexes());
    test::expectAnObjectOnly(test::decodable<BrowseList>);
}

TEST(BrowseList, NeedsOnlyItsObjects) {
    EXPECT_EQ(shown<BrowseList>(R"({"_links":{"self":{}},"_embedded":{}})"), R"({"href":"","items":[]})");
}

TEST(BrowseList, FailsWithoutTheObjectOfItsGroups) {
    EXPECT_EQ(failureOf<BrowseList>(R"({"_links":{"self":{"href":"h"}}})"), R"(keyNotFound ["_embedded"])");
}

TEST(BrowseList, FailsWithoutTheObjectOfItsSelfLink) {
    EXPECT_EQ(failureOf<BrowseList>(R"({"_links":{},"_embedded":{}})"), R"(keyNotFound ["_links","self"])");
}

TEST(BrowseList, FailsForANumericPathAlthoughItIsOptional) {
    EXPECT_EQ(failureOf<BrowseList>(R"({"_links":{"self":{"href":1}},"_embedded":{}})"),
              R"(typeMismatch ["_links","self","href"])");
}

TEST(BrowseList, ReadsItsLinksBeforeItsGroups) {
    test::expectErrorsInOrder(indexes(), {{"_links", "7"}, {"_embedded", "null"}});
    test::expectErrorsInOrder(indexes(), {{"_links.self", "[]"}, {"_embedded.items", "[7]"}});
    test::expectErrorsInOrder(indexes(), {{"_links.self.href", "[]"}, {"_embedded.items", "{}"}});
}

TEST(BrowseList, IsEqualIfItsFieldsAreEqual) {
    const char* const index = R"({"_links":{"self":{"href":"h"}},"_embedded":{"items":[{"id":"a"}]}})";
    EXPECT_EQ(decoded<BrowseList>(index), decoded<BrowseList>(index));
    EXPECT_NE(decoded<BrowseList>(index),
              decoded<BrowseList>(R"({"_links":{"self":{"href":"h"}},"_embedded":{"items":[{"id":"b"}]}})"));
}

TEST(BrowseList, AndItsGroupsCanOnlyBeConstructedByDecoding) {
    static_assert(!std::is_aggregate_v<BrowseList> && !std::is_default_constructible_v<BrowseList>);
    static_assert(!std::is_aggregate_v<BrowseItem> && !std::is_default_constructible_v<BrowseItem>);
    static_assert(std::is_copy_constructible_v<BrowseList> && std::is_copy_constructible_v<BrowseItem>);
}

}  // namespace
}  // namespace VanticRestKit
