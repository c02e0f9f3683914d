// How each element of a mixed list is decoded.

#include <gtest/gtest.h>
#include <lumeno/MixedCollection/MixedCollectionRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;

/// A collection with these elements.
std::optional<MixedCollection> collection(const std::string& elements) {
    return decoded<MixedCollection>(R"({"title":"t","items":[)" + elements + "]}");
}

/// The types of the decoded elements, in order: "Show Video Series". Fails the current test if the collection does not
/// decode or `items` and `mixedItems` differ.
std::string kindsOf(const std::string& elements) {
    const auto made = collection(elements);
    EXPECT_TRUE(made) << elements;
    if (!made) return "failure";
    std::string kinds;
    const std::vector<CollectionItem> items = made->items();
    EXPECT_EQ(items.size(), made->mixedItems.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const char* const kind = items[i].as<Show>() != nullptr     ? "Show"
                                 : items[i].as<Video>() != nullptr  ? "Video"
                                 : items[i].as<Series>() != nullptr ? "Series"
                                                                    : "?";
        kinds += (kinds.empty() ? "" : " ") + std::string(kind);
        EXPECT_EQ(made->mixedItems[i].item(), items[i]) << elements;
    }
    return kinds;
}

TEST(AnElementOfAMixedList, WithTheEntityShowIsAShowWhateverTheCase) {
    for (const char* const entity : {"show", "SHOW", "Show", "sHoW", "sh\\u006fw"}) {
        EXPECT_EQ(kindsOf(R"({"_entity":")" + std::string(entity) + R"(","id":"1","_links":{}})"), "Show")
            << entity;
    }
    EXPECT_EQ(kindsOf(R"({"_entity":"show"})"), "Show");
}

TEST(AnElementOfAMixedList, WithoutAnEntityIsAShowEvenIfItResemblesAnother) {
    EXPECT_EQ(kindsOf(R"({"title":"x"})"), "Show");
    EXPECT_EQ(kindsOf("{}"), "Show");
    EXPECT_EQ(kindsOf(R"({"id":"1","houseNumber":"n","duration":1,"_links":{"show":{"id":1}}})"), "Show");
    for (const char* const entity : {"5", "null", "true", "{}", "[\"video\"]", "\"\\ud800\""}) {
        EXPECT_EQ(kindsOf(R"({"_entity":)" + std::string(entity) + R"(,"id":"1","_links":{}})"), "Show")
            << entity;
    }
}

TEST(AnElementOfAMixedList, WithTheEntityVideoIsAVideoOrDroppedWithoutLinks) {
    for (const char* const entity : {"video", "VIDEO", "Video"}) {
        EXPECT_EQ(kindsOf(R"({"_entity":")" + std::string(entity) + R"(","_links":{}})"), "Video") << entity;
    }
    EXPECT_EQ(kindsOf(R"({"_entity":"video","id":"1"})"), "");
    for (const char* const links : {"null", "[]", "7", "\"x\"", "{\"\\ud800\":1}"}) {
        EXPECT_EQ(kindsOf(R"({"_entity":"video","id":"1","_links":)" + std::string(links) + "}"), "")
            << links;
    }
}

TEST(AnElementOfAMixedList, WithAnyOtherEntityIsASeriesIfItDecodesAsOne) {
    for (const char* const entity : {"series", "promo", "Series", "", "video ", "showing", "\\u0000"}) {
        EXPECT_EQ(kindsOf(R"({"_entity":")" + std::string(entity) + R"(","id":"1","_links":{}})"), "Series")
            << entity;
    }
}

TEST(AnElementOfAMixedList, WithAnyOtherEntityIsDroppedWithoutAStringIdOrWithoutLinks) {
    for (const char* const entity : {"series", "promo", ""}) {
        const std::string start = R"({"_entity":")" + std::string(entity) + "\"";
        EXPECT_EQ(kindsOf(start + R"(,"id":1,"_links":{}})"), "") << entity;
        EXPECT_EQ(kindsOf(start + R"(,"id":null,"_links":{}})"), "") << entity;
        EXPECT_EQ(kindsOf(start + R"(,"_links":{}})"), "") << entity;
        EXPECT_EQ(kindsOf(start + R"(,"id":"1"})"), "") << entity;
        EXPECT_EQ(kindsOf(start + R"(,"id":"1","_links":[]})"), "") << entity;
        EXPECT_EQ(kindsOf(start + "}"), "") << entity;
    }
}

TEST(AnElementOfAMixedList, IsDroppedIfItIsNotAnObject) {
    EXPECT_EQ(kindsOf(R"(1,null,"x",[])"), "");
    for (const char* const element :
         {"1", "-1.5", "null", "\"x\"", "\"show\"", "true", "[]", "[{}]", "01", "\"\\ud800\""}) {
        EXPECT_EQ(kindsOf(element), "") << element;
        EXPECT_EQ(kindsOf("{}," + std::string(element) + ",{}"), "Show Show") << element;
    }
}

TEST(AnElementOfAMixedList, IsDroppedIfItHasAnInvalidKey) {
    EXPECT_EQ(
        kindsOf(R"({"\ud800":1},{"_entity":"show","\ud800":1},{"\ud800":1,"_entity":"video","_links":{}})"),
        "");
    EXPECT_EQ(kindsOf(R"({"\ud800":1,"_entity":"series","id":"1","_links":{}},{})"), "Show");
    EXPECT_EQ(kindsOf(R"({"_entity":"series","id":"1","_links":{},"\ud800":1},{})"), "Show");
    // An invalid key deeper down affects only the object that contains it.
    EXPECT_EQ(kindsOf(R"({"_entity":"show","thumbnails":{"\ud800":1}})"), "Show");
}

TEST(AnElementOfAMixedList, UsesTheFirstOfTwoEntities) {
    EXPECT_EQ(kindsOf(R"({"_entity":"video","_entity":"show","_links":{}})"), "Video");
    EXPECT_EQ(kindsOf(R"({"_entity":"show","_entity":"video","_links":{}})"), "Show");
    EXPECT_EQ(kindsOf(R"({"_entity":5,"_entity":"video","_links":{}})"), "Show");
}

TEST(AnElementOfAMixedList, IsTheSameWhereverItsEntityAppears) {
    const std::string members =
        R"("id":"1","title":"x","_links":{"self":{"href":"h"}},"_embedded":{"a":[1,{"b":"\"}"}]})";
    for (const auto& [entity, kind] :
         {std::pair("show", "Show"), std::pair("video", "Video"), std::pair("promo", "Series")}) {
        const std::string check = R"("_entity":")" + std::string(entity) + "\"";
        const auto first = collection("{" + check + "," + members + "}");
        const auto last = collection("{" + members + " , " + check + "}");
        const auto escaped = collection("{" + members + R"(,"\u005fentity":")" + std::string(entity) + "\"}");
        ASSERT_TRUE(first);
        EXPECT_EQ(first, last) << entity;
        EXPECT_EQ(first, escaped) << entity;
        EXPECT_EQ(kindsOf("{" + members + "," + check + "}"), kind);
    }
}

TEST(AMixedList, KeepsTheOrderOfItsElements) {
    EXPECT_EQ(kindsOf(R"({"_entity":"video","_links":{}},{"_entity":"video"},{"_entity":"show"})"),
              "Video Show");
    EXPECT_EQ(
        kindsOf(
            R"({"_entity":"series","id":"1","_links":{}},7,{},{"_entity":"video","_links":{}},{"_entity":"x"},{})"),
        "Series Show Video Show");
}

TEST(AMixedList, ReadsEachCandidateFromTheStartOfTheElement) {
    // Members read for a rejected candidate are read again, and nothing of that candidate remains.
    const auto made = collection(
        R"({"id":"7","title":"a","status":{"title":"s","theme":"live"},"tags":["x","y"],"slug":"z",)"
        R"("_links":{"self":{"href":"h"},"show":{"id":3}},"_entity":"series"},)"
        R"({"id":"8","title":"b","captions":true,"slug":"z","duration":5,"_links":{"self":{"href":"i"}},"_entity":"video"})");
    ASSERT_TRUE(made);
    ASSERT_EQ(made->mixedItems.size(), 2U);
    const auto* const series = made->mixedItems[0].as<Series>();
    ASSERT_NE(series, nullptr);
    EXPECT_EQ(*series,
              (Series{.seriesId = "7", .title = "a", .selfHref = "h", .tags = {"x", "y"}, .showId = 3}));
    const auto* const video = made->mixedItems[1].as<Video>();
    ASSERT_NE(video, nullptr);
    EXPECT_EQ(*video, (Video{.videoId = "8",
                             .title = "b",
                             .duration = 5,
                             .captionsAvailable = true,
                             .selfHref = "i",
                             .playableVideo = DirectPlayableVideo{.id = "8", .href = "i"}}));
}

TEST(AMixedList, TriesShowBeforeVideoBeforeSeries) {
    // Each of these would decode as several of the types.
    const std::string all = R"("id":"1","_links":{}})";
    EXPECT_EQ(test::failureOf<Show>("{" + all), "");
    EXPECT_EQ(test::failureOf<Video>("{" + all), "");
    EXPECT_EQ(test::failureOf<Series>("{" + all), "");
    EXPECT_EQ(kindsOf("{" + all), "Show");
    const std::string video = R"({"_entity":"video",)" + all;
    EXPECT_EQ(test::failureOf<Video>(video), "");
    EXPECT_EQ(test::failureOf<Series>(video), "");
    EXPECT_EQ(kindsOf(video), "Video");
    const std::string show = R"({"_entity":"show",)" + all;
    EXPECT_EQ(test::failureOf<Series>(show), "");
    EXPECT_EQ(kindsOf(show), "Show");
}

TEST(AMixedList, AppliesTheRulesOfListsInsideItsElements) {
    const auto made = collection(
        R"({"_entity":"show","_embedded":{"videoExtras":[{"_links":{}},{}]}},{"_entity":"show","tags":["a",1]})");
    ASSERT_TRUE(made);
    ASSERT_EQ(made->mixedItems.size(), 2U);
    EXPECT_EQ(*made->mixedItems[0].as<Show>(), Show{.theme = Theme::default_});
    EXPECT_EQ(*made->mixedItems[1].as<Show>(), Show{.theme = Theme::default_});
}

TEST(AMixedList, FailsForAMalformedElement) {
    for (const char* const broken :
         {R"({"_entity":"show")", R"({"_entity":"series","id":"1")",
          R"({"_entity":"video",})"
          "]",
          R"({"_entity" "show"})", R"({"a":tru,"_entity":"show"})", R"({"_entity":"x)"}) {
        EXPECT_EQ(test::failureOf<MixedCollection>(R"({"title":"t","items":[)" + std::string(broken) + "]}"),
                  "dataCorrupted []")
            << broken;
    }
}

}  // namespace
}  // namespace VanticRestKit
