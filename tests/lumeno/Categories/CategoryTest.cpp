#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Categories/Category.h>

#include <platform/json/BothEngines.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;

const std::string embedded = R"("_embedded":{"featuredCollection":{"title":"f"},"collections":[]})";
const std::string links = R"("_links":{"self":{"href":"h"}})";

/// The smallest category document with these members added.
std::string document(const std::string& members) {
    return R"({"title":"t",)" + (members.empty() ? "" : members + ",") + embedded + "," + links + "}";
}

Category category(const std::string& members) {
    const auto made = decoded<Category>(document(members));
    EXPECT_TRUE(made) << members;
    return made.value_or(Category{});
}

MixedCollection titled(const char* title) {
    return MixedCollection({.title = title, .href = std::nullopt, .items = std::vector<CollectionItem>()});
}

Category minimal() { return {.title = "t", .selfHref = "h", .featuredCollection = titled("f")}; }

TEST(Category, NeedsATitleItsCollectionsAndASelfLink) {
    const Category made = category("");
    EXPECT_EQ(made, minimal());
    EXPECT_EQ(made.theme, Theme::default_);
    EXPECT_EQ(made.id, std::nullopt);
    EXPECT_EQ(made.featuredImageHref, std::nullopt);
    EXPECT_EQ(made.logoHref, std::nullopt);
    EXPECT_EQ(made.banner, std::nullopt);
    EXPECT_EQ(made.alertId, std::nullopt);
    EXPECT_EQ(made.featuredCollection.title, "f");
    EXPECT_TRUE(made.collections.empty());
}

TEST(Category, FailsWithoutItsCollections) {
    const auto without = [](const char* inside) {
        return failureOf<Category>(R"({"title":"t","_embedded":{)" + std::string(inside) + "}," + links +
                                   "}");
    };
    EXPECT_EQ(without(R"("featuredCollection":{"title":"f"})"), R"(keyNotFound ["_embedded","collections"])");
    EXPECT_EQ(without(R"("collections":[])"), R"(keyNotFound ["_embedded","featuredCollection"])");
    EXPECT_EQ(without(R"("featuredCollection":{"title":"f"},"collections":[{"title":"a"},{}])"),
              R"(keyNotFound ["_embedded","collections",1,"title"])");
    EXPECT_EQ(without(R"("featuredCollection":{"title":"f"},"collections":[{"title":"a","_links":{}}])"),
              R"(keyNotFound ["_embedded","collections",0,"_links","self"])");
    EXPECT_EQ(failureOf<Category>(R"({"title":"t",)" + links + "}"), R"(keyNotFound ["_embedded"])");
}

TEST(Category, FailsWithoutLinksUnlikeACollection) {
    const std::string start = R"({"title":"t",)" + embedded;
    EXPECT_EQ(failureOf<Category>(start + "}"), R"(keyNotFound ["_links"])");
    EXPECT_EQ(failureOf<Category>(start + R"(,"_links":{}})"), R"(keyNotFound ["_links","self"])");
    EXPECT_EQ(failureOf<Category>(start + R"(,"_links":{"self":{}}})"),
              R"(keyNotFound ["_links","self","href"])");
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":"t"})"), "");
}

TEST(Category, HasNoAlertIfTheLinkIsNotAnObject) {
    const auto alertOf = [](const char* alert) {
        const auto made = decoded<Category>(R"({"title":"t",)" + embedded +
                                            R"(,"_links":{"self":{"href":"h"},"alert":)" + alert + "}}");
        EXPECT_TRUE(made) << alert;
        return made ? made->alertId : "failure";
    };
    EXPECT_EQ(alertOf("5"), std::nullopt);
    EXPECT_EQ(alertOf(R"({"id":5})"), std::nullopt);
    EXPECT_EQ(alertOf(R"({"id":"5"})"), "5");
}

TEST(Category, HasTheDefaultThemeForAnUnknownValue) {
    EXPECT_EQ(category(R"("theme":"light")").theme, Theme::light);
    for (const char* const theme :
         {R"("theme":"dark")", R"("theme":1)", R"("theme":"Light")", R"("theme":"default")"}) {
        EXPECT_EQ(category(theme).theme, Theme::default_) << theme;
    }
}

TEST(Category, DoesNotReadAnIdFromANumber) {
    EXPECT_EQ(category(R"("id":7)"), minimal());
    EXPECT_EQ(category(R"("id":"7")").id, "7");
}

TEST(Category, KeepsACollectionWithoutValidElements) {
    const auto made = decoded<Category>(
        R"({"title":"t","_embedded":{"featuredCollection":{"title":"f","items":[{"_entity":"video"},7,null]},)"
        R"("collections":[{"title":"a","items":[{"_entity":"series"}]},{"title":"b","items":[{}]}]},)" +
        links + "}");
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->featuredCollection.mixedItems.empty());
    ASSERT_EQ(made->collections.size(), 2U);
    EXPECT_EQ(made->collections[0], titled("a"));
    EXPECT_EQ(made->collections[1].mixedItems.size(), 1U);
}

TEST(Category, KeepsTheFeaturedCollectionSeparateFromTheOthers) {
    const auto made = decoded<Category>(
        R"({"title":"t","_embedded":{"collections":[{"id":1,"title":"a"},{"id":2,"title":"b"}],)"
        R"("featuredCollection":{"id":2,"title":"c"}},)" +
        links + "}");
    ASSERT_TRUE(made);
    EXPECT_EQ(made->featuredCollection.title, "c");
    ASSERT_EQ(made->collections.size(), 2U);
    EXPECT_EQ(made->collections[0].collectionId, "1");
    EXPECT_EQ(made->collections[1].title, "b");
}

TEST(Category, ReportsAFaultyTitleBeforeFaultyCollectionsAndThoseBeforeFaultyLinks) {
    EXPECT_EQ(failureOf<Category>(R"({"_links":7,"_embedded":7,"title":7})"), R"(typeMismatch ["title"])");
    EXPECT_EQ(failureOf<Category>(R"({"_links":7,"_embedded":7,"title":"t"})"),
              R"(typeMismatch ["_embedded"])");
    EXPECT_EQ(failureOf<Category>(R"({"_links":7,)" + embedded + R"(,"title":"t"})"),
              R"(typeMismatch ["_links"])");
}

TEST(Category, CreatedByAHostMayHaveNoPath) { EXPECT_EQ(Category{.title = "t"}.selfHref, std::nullopt); }

}  // namespace
}  // namespace VanticRestKit
