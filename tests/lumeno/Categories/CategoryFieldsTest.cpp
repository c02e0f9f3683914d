// Tests the ten fields of a category in every state.

#include <gtest/gtest.h>
#include <lumeno/MixedCollection/MixedCollectionRules.h>
#include <VanticRestKit/lumeno/Categories/Category.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

std::string collectionText(const char* title) {
    return valueText(
        MixedCollection({.title = title, .href = std::nullopt, .items = std::vector<CollectionItem>()}));
}

/// A required collection: without it the category fails.
test::Shape collection() {
    test::Shape shape = test::objectOf(
        {{R"({"title":"$"})", collectionText("$")},
         {R"({"title":"$","items":[7,null],"id":-1})", collectionText("$")}},
        {{"{}", "keyNotFound", "/title"},
         {R"({"title":1})", "typeMismatch", "/title"},
         {R"({"title":"t","_links":{}})", "keyNotFound", "/_links/self"},
         {R"({"title":"t","_links":{"self":{"href":null}}})", "valueNotFound", "/_links/self/href"}});
    return shape;
}

test::Shape collections() {
    return test::listOf("[]",
                        {{R"([{"title":"$"},{"title":"b","items":{}}])",
                          "[" + collectionText("$") + "," + collectionText("b") + "]"},
                         {"[]", "[]"}},
                        {"{}", "keyNotFound", "/title"});
}

test::EntityRules categories() {
    return {
        .type = test::decodable<Category>,
        .minimal = R"({"title":"t","_embedded":{"featuredCollection":{"title":"f"},"collections":[]},)"
                   R"("_links":{"self":{"href":"h"}}})",
        .fields = {test::lenientText("id", "id"),
                   {"title", "title", Strictness::required, test::text()},
                   test::lenientText("featuredImageHref", "featuredImage"),
                   test::lenientText("logoHref", "logoUrl"),
                   {"banner", "banner", Strictness::lenient, test::bannerObject()},
                   {"theme", "theme", Strictness::lenient, test::themeText()},
                   {"selfHref", "_links.self.href", Strictness::required, test::text()},
                   test::lenientText("alertId", "_links.alert.id"),
                   {"featuredCollection", "_embedded.featuredCollection", Strictness::required, collection()},
                   {"collections", "_embedded.collections", Strictness::required, collections()}},
        .containers = {{"_embedded", Strictness::required},
                       {"_links", Strictness::required},
                       {"_links.self", Strictness::required},
                       {"_links.alert", Strictness::lenient}}};
}

TEST(CategoryFields, AreTen) {
    ASSERT_EQ(categories().fields.size(), 10U);
    test::expectDeclaredFields(categories());
}

TEST(CategoryFields, AreReadFromTheirKeysAndTitleCollectionsAndPathAreRequired) {
    test::expectFieldsInEveryState(categories());
}

TEST(CategoryFields, RequireTheirObjectsExceptThatOfTheAlert) {
    test::expectContainersInEveryState(categories());
}

TEST(CategoryFields, AreReadOnlyFromAnObject) { test::expectAnObjectOnly(test::decodable<Category>); }

TEST(CategoryFields, FailInTheOrderOfDecoding) {
    test::expectErrorsInOrder(categories(), {{"title", "1"}, {"_embedded", "null"}, {"_links", "7"}});
    test::expectErrorsInOrder(
        categories(), {{"title", "null"}, {"_embedded.featuredCollection", "{}"}, {"_links.self", "[]"}});
    test::expectErrorsInOrder(categories(), {{"_embedded.featuredCollection", "{}"},
                                             {"_embedded.collections", "[{}]"},
                                             {"_links.self.href", "1"}});
}

TEST(CategoryFields, AreReadOnlyFromTheirOwnKeys) {
    const auto made = decoded<Category>(
        R"({"title":"t","_embedded":{"featuredCollection":{"title":"f"},"collections":[],"items":[{}]},)"
        R"("_links":{"self":{"href":"h","id":"x"},"href":"x","alert":{"href":"x"}},"featuredImageHref":"x",)"
        R"("logoHref":"x","alertId":"x","selfHref":"x","collections":[{"title":"x"}],"Theme":"light"})");
    ASSERT_TRUE(made);
    EXPECT_EQ(*made,
              (Category{.title = "t",
                        .selfHref = "h",
                        .featuredCollection = MixedCollection(
                            {.title = "f", .href = std::nullopt, .items = std::vector<CollectionItem>()})}));
}

TEST(CategoryFields, InitializeACategoryInDeclaredOrder) {
    const auto titled = [](const char* title) {
        return MixedCollection(
            {.title = title, .href = std::nullopt, .items = std::vector<CollectionItem>()});
    };
    const Category category{.id = "a",
                            .title = "b",
                            .featuredImageHref = "c",
                            .logoHref = "d",
                            .banner = Banner{.largeImageHref = "e", .smallImageHref = "f", .linkHref = "g"},
                            .theme = Theme::light,
                            .selfHref = "h",
                            .alertId = "i",
                            .featuredCollection = titled("j"),
                            .collections = {titled("k"), titled("l")}};
    EXPECT_EQ(
        decoded<Category>(
            R"({"id":"a","title":"b","featuredImage":"c","logoUrl":"d","banner":{"large":"e","small":"f","link":"g"},)"
            R"("theme":"light","_links":{"self":{"href":"h"},"alert":{"id":"i"}},)"
            R"("_embedded":{"featuredCollection":{"title":"j"},"collections":[{"title":"k"},{"title":"l"}]}})"),
        category);
    EXPECT_EQ(
        valueText(category),
        R"({"id":"a","title":"b","featuredImageHref":"c","logoHref":"d","banner":{"largeImageHref":"e",)"
        R"("smallImageHref":"f","altText":null,"linkHref":"g"},"theme":"light","selfHref":"h","alertId":"i",)"
        R"("featuredCollection":)" +
            collectionText("j") + R"(,"collections":[)" + collectionText("k") + "," + collectionText("l") +
            "]}");
    Category other = category;
    other.collections.pop_back();
    EXPECT_NE(other, category);
}

}  // namespace
}  // namespace VanticRestKit
