// Tests the eleven fields of a collection in every state.

#include <gtest/gtest.h>
#include <lumeno/MixedCollection/MixedCollectionRules.h>

namespace VanticRestKit {
namespace {

using test::collections;
using test::decoded;

TEST(MixedCollectionFields, AreEleven) {
    ASSERT_EQ(collections().fields.size(), 11U);
    test::expectDeclaredFields(collections());
}

TEST(MixedCollectionFields, AreReadFromTheirKeysAndOnlyTitleAndPathAreRequired) {
    test::expectFieldsInEveryState(collections());
}

TEST(MixedCollectionFields, AreEmptyWithoutTheirObjectAndRequireASelfLinkInTheLinks) {
    test::expectContainersInEveryState(collections());
}

TEST(MixedCollectionFields, FailInTheOrderOfDecoding) {
    test::expectErrorsInOrder(collections(), {{"title", "1"}, {"_links.self", "{}"}});
    test::expectErrorsInOrder(collections(), {{"title", "null"}, {"_links.self.href", "[]"}});
    test::expectErrorsInOrder(collections(), {{"title", "{}"}, {"_links", "{}"}});
}

TEST(MixedCollectionFields, AreReadOnlyFromTheirOwnKeys) {
    const auto made = decoded<MixedCollection>(
        R"({"title":"t","collectionId":"x","mixedItems":[{}],"href":"x","Type":"movie","alertId":"x","Title":"x",)"
        R"("highlightItem":{},"self":{"href":"x"},"link":{"href":"x"},"_embedded":{"items":[{}],"highlightVideo":{}},)"
        R"("_links":{"href":"x","id":"x","self":{"href":"h","id":"x"},"alert":{"href":"x"},"highlightItem":{}}})");
    ASSERT_TRUE(made);
    EXPECT_EQ(*made, MixedCollection({.title = "t", .href = "h", .items = std::vector<CollectionItem>()}));
}

TEST(MixedCollectionFields, AreReadOnlyFromAnObject) {
    test::expectAnObjectOnly(test::decodable<MixedCollection>);
}

TEST(MixedCollectionFields, InitializeACollectionInDeclaredOrder) {
    const MixedCollection collection(
        {.collectionId = "a",
         .title = "b",
         .mixedItems = {MixedItem(Show{.title = "c"}), MixedItem(Series{.seriesId = "d"})},
         .href = "e",
         .type = MixedCollectionType::featured,
         .description = "f",
         .thumbnail = "g",
         .banner = Banner{.largeImageHref = "h", .smallImageHref = "i", .altText = "j", .linkHref = "k"},
         .collectionLink = Link{.href = "l"},
         .highlightItem = CollectionItem(Video{.videoId = "m"}),
         .alertId = "n"});
    EXPECT_EQ(collection.collectionId, "a");
    EXPECT_EQ(collection.title, "b");
    ASSERT_EQ(collection.mixedItems.size(), 2U);
    EXPECT_EQ(collection.href, "e");
    EXPECT_EQ(collection.type, MixedCollectionType::featured);
    EXPECT_EQ(collection.description, "f");
    EXPECT_EQ(collection.thumbnail, "g");
    ASSERT_TRUE(collection.banner);
    EXPECT_EQ(collection.banner->altText, "j");
    EXPECT_EQ(collection.collectionLink, Link{.href = "l"});
    ASSERT_TRUE(collection.highlightItem);
    ASSERT_NE(collection.highlightItem->as<Video>(), nullptr);
    EXPECT_EQ(collection.highlightItem->as<Video>()->videoId, "m");
    EXPECT_EQ(collection.alertId, "n");
    EXPECT_TRUE(
        valueText(collection).starts_with(R"({"collectionId":"a","title":"b","mixedItems":[{"Show":{)"));
    EXPECT_TRUE(valueText(collection).ends_with(R"(,"alertId":"n"})"));
}

TEST(MixedCollectionType, HasThreeCasesInOrderAndNoneForAnUnknownValue) {
    using Type = MixedCollectionType;
    const std::vector<std::pair<Type, std::string>> cases = {
        {Type::standard, "standard"}, {Type::movie, "movie"}, {Type::featured, "featured"}};
    ASSERT_EQ(std::size(RawTexts<Type>::cases), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(RawTexts<Type>::cases[i].value, cases[i].first);
        EXPECT_EQ(rawValue(cases[i].first), cases[i].second);
        EXPECT_EQ(fromRawValue<Type>(cases[i].second), cases[i].first);
    }
    EXPECT_EQ(fromRawValue<Type>("Movie"), std::nullopt);
    EXPECT_EQ(fromRawValue<Type>(""), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
