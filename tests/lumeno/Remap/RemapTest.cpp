#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>

#include <platform/json/FieldRules.h>
#include <type_traits>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

/// A string that is empty by default.
test::Shape textOrNone() {
    test::Shape shape = test::text();
    shape.empty = "\"\"";
    return shape;
}

test::EntityRules remaps() {
    return {.type = test::decodable<Remap>,
            .minimal = R"({"_links":{"deeplink":{},"api":{}}})",
            .fields = {{"status", "status", Strictness::optional, textOrNone()},
                       {"apiHref", "_links.api.href", Strictness::optional, textOrNone()},
                       {"deeplinkHref", "_links.deeplink.href", Strictness::optional, textOrNone()}},
            .containers = {{"_links", Strictness::required},
                           {"_links.deeplink", Strictness::required},
                           {"_links.api", Strictness::required}}};
}

TEST(Remap, HasThreeFields) { test::expectDeclaredFields(remaps()); }

TEST(Remap, HasEmptyStringsForMissingFieldsAndFailsForOtherTypes) {
    test::expectFieldsInEveryState(remaps());
}

TEST(Remap, FailsWithoutTheObjectOfEachLink) { test::expectContainersInEveryState(remaps()); }

TEST(Remap, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Remap>); }

TEST(Remap, NeedsOnlyTheObjectsOfBothLinks) {
    const auto remap = decoded<Remap>(R"({"_links": {"api": {}, "deeplink": {}}})");
    ASSERT_TRUE(remap);
    EXPECT_EQ(remap->status, "");
    EXPECT_EQ(remap->apiHref, "");
    EXPECT_EQ(remap->deeplinkHref, "");
}

TEST(Remap, FailsWithoutTheDeeplink) {
    EXPECT_EQ(failureOf<Remap>(R"({"status": "ok", "_links": {"api": {"href": "a"}}})"),
              R"(keyNotFound ["_links","deeplink"])");
}

TEST(Remap, FailsWithoutTheAPILink) {
    EXPECT_EQ(failureOf<Remap>(R"({"status": "ok", "_links": {"deeplink": {"href": "a"}}})"),
              R"(keyNotFound ["_links","api"])");
}

TEST(Remap, FailsWithoutLinks) { EXPECT_EQ(failureOf<Remap>("{}"), R"(keyNotFound ["_links"])"); }

TEST(Remap, FailsForANumericStatusAlthoughItIsOptional) {
    EXPECT_EQ(failureOf<Remap>(R"({"status":1,"_links":{"api":{},"deeplink":{}}})"),
              R"(typeMismatch ["status"])");
    EXPECT_EQ(failureOf<Remap>(R"({"status":null,"_links":{"api":{},"deeplink":{}}})"), "");
}

TEST(Remap, ReadsTheDeeplinkBeforeTheAPILink) {
    // Both are missing.
    EXPECT_EQ(failureOf<Remap>(R"({"_links":{}})"), R"(keyNotFound ["_links","deeplink"])");
    // Both are faulty, and the API link is first in the document.
    EXPECT_EQ(failureOf<Remap>(R"({"_links":{"api":{"href":1},"deeplink":{"href":2}}})"),
              R"(typeMismatch ["_links","deeplink","href"])");
    EXPECT_EQ(failureOf<Remap>(R"({"_links":{"api":1,"deeplink":{"href":2}}})"),
              R"(typeMismatch ["_links","deeplink","href"])");
}

TEST(Remap, ReadsTheStatusThenTheDeeplinkThenTheAPILink) {
    test::expectErrorsInOrder(remaps(), {{"status", "1"}, {"_links", "7"}});
    test::expectErrorsInOrder(remaps(), {{"status", "[]"}, {"_links.deeplink", "1"}, {"_links.api", "null"}});
    test::expectErrorsInOrder(remaps(),
                              {{"status", "{}"}, {"_links.deeplink.href", "1"}, {"_links.api.href", "[]"}});
}

TEST(Remap, ReadsItsPathsOnlyFromItsLinks) {
    const auto remap = decoded<Remap>(
        R"({"href":"x","api":{"href":"x"},"apiHref":"x","_links":{"href":"x","self":{"href":"x"},"api":{"id":"x"},)"
        R"("deeplink":{"title":"x"}},"Status":"x"})");
    ASSERT_TRUE(remap);
    EXPECT_EQ(valueText(*remap), R"({"status":"","apiHref":"","deeplinkHref":""})");
}

TEST(Remap, IsEqualIfItsStringsAreEqual) {
    const auto remap = [](const char* status, const char* api, const char* deeplink) {
        return decoded<Remap>(R"({"status":")" + std::string(status) + R"(","_links":{"api":{"href":")" +
                              api + R"("},"deeplink":{"href":")" + deeplink + R"("}}})");
    };
    EXPECT_EQ(remap("s", "a", "d"), remap("s", "a", "d"));
    EXPECT_NE(remap("s", "a", "d"), remap("t", "a", "d"));
    EXPECT_NE(remap("s", "a", "d"), remap("s", "b", "d"));
    EXPECT_NE(remap("s", "a", "d"), remap("s", "a", "e"));
}

TEST(Remap, CanOnlyBeConstructedByDecoding) {
    static_assert(!std::is_aggregate_v<Remap> && !std::is_default_constructible_v<Remap>);
    static_assert(!std::is_constructible_v<Remap, std::string, std::string, std::string>);
    static_assert(std::is_copy_constructible_v<Remap>);
}

}  // namespace
}  // namespace VanticRestKit
