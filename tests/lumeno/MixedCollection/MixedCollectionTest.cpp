#include <gtest/gtest.h>
#include <lumeno/MixedCollection/MixedCollectionRules.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using Items = std::vector<CollectionItem>;

/// A collection with a title and these members.
MixedCollection collection(const std::string& members) {
    auto made = decoded<MixedCollection>(R"({"title":"t")" + (members.empty() ? "" : "," + members) + "}");
    EXPECT_TRUE(made) << members;
    return made ? *std::move(made) : MixedCollection({.title = "", .href = std::nullopt, .items = Items()});
}

MixedCollection empty() { return MixedCollection({.title = "t", .href = std::nullopt, .items = Items()}); }

TEST(MixedCollection, NeedsOnlyATitle) {
    const MixedCollection made = collection("");
    EXPECT_EQ(made, empty());
    EXPECT_EQ(made.title, "t");
    EXPECT_TRUE(made.mixedItems.empty());
    EXPECT_EQ(made.type, MixedCollectionType::standard);
    EXPECT_EQ(made.collectionId, std::nullopt);
    EXPECT_EQ(made.href, std::nullopt);
    EXPECT_EQ(made.description, std::nullopt);
    EXPECT_EQ(made.thumbnail, std::nullopt);
    EXPECT_EQ(made.banner, std::nullopt);
    EXPECT_EQ(made.collectionLink, std::nullopt);
    EXPECT_EQ(made.highlightItem, std::nullopt);
    EXPECT_EQ(made.alertId, std::nullopt);
}

TEST(MixedCollection, RequiresATitleThatIsAString) {
    EXPECT_EQ(failureOf<MixedCollection>("{}"), R"(keyNotFound ["title"])");
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":1})"), R"(typeMismatch ["title"])");
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":null})"), R"(valueNotFound ["title"])");
}

TEST(MixedCollection, CanOmitItsLinksButNotTheSelfLinkInThem) {
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":"t","_links":{}})"), R"(keyNotFound ["_links","self"])");
    EXPECT_EQ(collection(R"("_links":5)"), empty());
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":"t","_links":{"self":{}}})"),
              R"(keyNotFound ["_links","self","href"])");
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":"t","_links":{"self":[]}})"),
              R"(typeMismatch ["_links","self"])");
    EXPECT_EQ(failureOf<MixedCollection>(R"({"title":"t","_links":{"self":null}})"),
              R"(valueNotFound ["_links","self"])");
}

TEST(MixedCollection, HasNoAlertIfTheLinkIsNotAnObject) {
    const MixedCollection made = collection(R"("_links":{"self":{"href":"h"},"alert":"x"})");
    EXPECT_EQ(made.href, "h");
    EXPECT_EQ(made.alertId, std::nullopt);
    EXPECT_EQ(collection(R"("_links":{"self":{"href":"h"},"alert":{"id":"a"}})").alertId, "a");
}

TEST(MixedCollection, ReadsTheSameIdFromANumberAndAString) {
    EXPECT_EQ(collection(R"("id":12)").collectionId, "12");
    EXPECT_EQ(collection(R"("id":"12")").collectionId, "12");
    for (const char* const none :
         {R"("id":-1)", R"("id":true)", R"("id":1.5)", R"("id":null)", R"("id":["1"])"}) {
        EXPECT_EQ(collection(none).collectionId, std::nullopt) << none;
    }
}

TEST(MixedCollection, HasTheStandardTypeForAnUnknownValue) {
    EXPECT_EQ(collection(R"("type":"movie")").type, MixedCollectionType::movie);
    EXPECT_EQ(collection(R"("type":"featured")").type, MixedCollectionType::featured);
    for (const char* const standard :
         {R"("type":"Movie")", R"("type":"other")", R"("type":1)", R"("type":"standard")"}) {
        EXPECT_EQ(collection(standard).type, MixedCollectionType::standard) << standard;
    }
}

TEST(MixedCollection, HasNoItemsUnlessTheyAreAList) {
    for (const char* const none : {R"("items":{})", R"("items":"x")", R"("items":null)", R"("items":7)"}) {
        EXPECT_EQ(collection(none), empty()) << none;
    }
}

TEST(MixedCollection, HighlightsAShowOrAVideoButNotASeries) {
    const auto highlight = [](const char* item) {
        return collection(R"("_embedded":{"highlightItem":)" + std::string(item) + "}").highlightItem;
    };
    EXPECT_EQ(highlight(R"({"_entity":"series","id":"1","_links":{}})"), std::nullopt);
    const auto video = highlight(R"({"_entity":"video","_links":{}})");
    ASSERT_TRUE(video);
    EXPECT_NE(video->as<Video>(), nullptr);
    const auto show = highlight(R"({"_entity":"show"})");
    ASSERT_TRUE(show);
    EXPECT_NE(show->as<Show>(), nullptr);
    // Without an entity it is a show, even if it resembles the others.
    const auto unnamed = highlight(R"({"id":"1","houseNumber":"n","_links":{}})");
    ASSERT_TRUE(unnamed);
    EXPECT_NE(unnamed->as<Show>(), nullptr);
    for (const char* const none :
         {R"({"_entity":"video"})", R"({"_entity":"promo"})", "7", "null", "[]", "\"x\""}) {
        EXPECT_EQ(highlight(none), std::nullopt) << none;
    }
}

TEST(MixedCollection, CreatedByAHostHasOnlyItsItems) {
    const MixedCollection made({.title = "t",
                                .href = "h",
                                .items = {Show{.title = "a"}, Video{.videoId = "b"}, Show{.title = "c"}}});
    EXPECT_EQ(made.title, "t");
    EXPECT_EQ(made.href, "h");
    EXPECT_EQ(made.type, MixedCollectionType::standard);
    ASSERT_EQ(made.mixedItems.size(), 3U);
    ASSERT_NE(made.mixedItems[1].as<Video>(), nullptr);
    EXPECT_EQ(made.mixedItems[1].as<Video>()->videoId, "b");
    EXPECT_EQ(made.items(), (Items{Show{.title = "a"}, Video{.videoId = "b"}, Show{.title = "c"}}));
    EXPECT_EQ(made.collectionId, std::nullopt);
    EXPECT_EQ(made.description, std::nullopt);
    EXPECT_EQ(made.thumbnail, std::nullopt);
    EXPECT_EQ(made.banner, std::nullopt);
    EXPECT_EQ(made.collectionLink, std::nullopt);
    EXPECT_EQ(made.highlightItem, std::nullopt);
    EXPECT_EQ(made.alertId, std::nullopt);
}

TEST(MixedCollection, CreatedByAHostMayHaveNoPath) {
    EXPECT_EQ(MixedCollection({.title = "t", .href = std::nullopt, .items = Items()}), collection(""));
}

TEST(MixedCollection, IsEqualIfItsFieldsAndItemsAreEqual) {
    const char* const members =
        R"("items":[{"_entity":"show","title":"a"}],"_embedded":{"highlightItem":{}})";
    EXPECT_EQ(collection(members), collection(members));
    EXPECT_NE(collection(members),
              collection(R"("items":[{"_entity":"show","title":"b"}],"_embedded":{"highlightItem":{}})"));
    EXPECT_NE(collection(members), collection(R"("items":[{"_entity":"show","title":"a"}])"));
    EXPECT_NE(collection(members), collection(""));
}

TEST(EmptyOfAMixedCollection, DecodesFromAnyValueWithoutReadingIt) {
    for (const char* const json : {"{}", "[]", "null", "7", "-1.5", "true", "\"x\"",
                                   R"({"a":[{"b":"\ud800"}],"c":01})", R"(["\q"])", R"("\ud800")", "01"}) {
        EXPECT_EQ(decoded<MixedCollection::Empty>(json), MixedCollection::Empty()) << json;
    }
}

TEST(EmptyOfAMixedCollection, FailsForAMalformedDocument) {
    for (const char* const json : {"", "{", "[1", "nul", "{}}", "\"x"}) {
        EXPECT_EQ(failureOf<MixedCollection::Empty>(json), "dataCorrupted []") << json;
    }
}

TEST(EmptyOfAMixedCollection, SkipsEveryElementOfAList) {
    EXPECT_EQ(decoded<std::vector<MixedCollection::Empty>>(R"([1,{"a":{}},null,[[]],"x"])"),
              std::vector<MixedCollection::Empty>(5));
}

TEST(EmptyOfAMixedCollection, IsEncodedAsAnEmptyObject) {
    const auto encoded = JSONEncoder().encode(MixedCollection::Empty());
    ASSERT_TRUE(encoded);
    EXPECT_EQ(*encoded, Data("{}"));
}

}  // namespace
}  // namespace VanticRestKit
