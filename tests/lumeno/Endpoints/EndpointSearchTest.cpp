// Requests for related shows and searches, and the handling of the responses.

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>

#include <lumeno/Endpoints/Sent.h>

namespace VanticRestKit {
namespace {

using test::answered;
using test::CatalogueContext;
using test::expectADecodingFailure;
using test::sent;

std::string sentForRelated(std::optional<std::string> channel) {
    return sent([&](const Context& context) {
        return Endpoint::RelatedShows({.showSlug = "lantern-road", .channel = channel}, context);
    });
}

std::string sentForSearch(const std::string& keyword, std::optional<std::string> channel) {
    return sent([&](const Context& context) {
        return Endpoint::Search({.keyword = keyword, .channel = channel}, context);
    });
}

TEST(EndpointRelatedShows, SendsTheSlugAndANonEmptyChannel) {
    EXPECT_EQ(sentForRelated(std::nullopt), "GET https://api.example.test/v2/related/show/lantern-road");
    EXPECT_EQ(sentForRelated("one"), "GET https://api.example.test/v2/related/show/lantern-road?channel=one");
    EXPECT_EQ(sentForRelated(""), "GET https://api.example.test/v2/related/show/lantern-road");
}

TEST(EndpointRelatedShows, DecodesTheShowsOrNoneIfOneFails) {
    const CatalogueContext context;
    const auto list =
        answered(context, Endpoint::RelatedShows({.showSlug = "x", .channel = std::nullopt}, context),
                 R"({"items":[{"slug":"a"},{"slug":"b"}]})");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->items.size(), 2U);
    EXPECT_EQ(list->items[1].slug, "b");
    const CatalogueContext other;
    const auto none =
        answered(other, Endpoint::RelatedShows({.showSlug = "x", .channel = std::nullopt}, other),
                 R"({"items":[{"slug":"a"},{"_entity":"video"}]})");
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->items.empty());
}

TEST(EndpointRelatedShows, FailsToDecodeUnlessItIsAnObject) {
    for (const char* const body : {"[]", "null", ""}) {
        const CatalogueContext context;
        expectADecodingFailure(
            answered(context, Endpoint::RelatedShows({.showSlug = "x", .channel = std::nullopt}, context),
                     body),
            body);
    }
}

TEST(EndpointSearch, SendsKeywordAndChannelEvenIfEmpty) {
    EXPECT_EQ(sentForSearch("river", std::nullopt), "GET https://api.example.test/v2/search?keyword=river");
    EXPECT_EQ(sentForSearch("river", "one"),
              "GET https://api.example.test/v2/search?keyword=river&channel=one");
    EXPECT_EQ(sentForSearch("", ""), "GET https://api.example.test/v2/search?keyword=&channel=");
    EXPECT_EQ(sentForSearch("a&b=c d", std::nullopt),
              "GET https://api.example.test/v2/search?keyword=a%26b%3Dc%20d");
}

TEST(EndpointSearch, DecodesTheResults) {
    const CatalogueContext context;
    const auto results =
        answered(context, Endpoint::Search({.keyword = "river", .channel = std::nullopt}, context),
                 R"({"_meta":{"keyword":"River"},"results":{"items":[{"slug":"a"}]}})");
    ASSERT_TRUE(results);
    EXPECT_EQ(results->keyword, "River");
    ASSERT_EQ(results->items.size(), 1U);
    EXPECT_EQ(results->items[0].slug, "a");
}

TEST(EndpointSearch, FailsToDecodeWithoutResultsOrFacts) {
    for (const char* const body :
         {"{}", R"({"results":{"items":[]}})", R"({"_meta":{"keyword":"x"}})", "[]"}) {
        const CatalogueContext context;
        expectADecodingFailure(
            answered(context, Endpoint::Search({.keyword = "x", .channel = std::nullopt}, context), body),
            body);
    }
}

TEST(EndpointsOfSearch, AreAbsentIfTheContextMakesNoRequest) {
    const test::NoRequestContext context;
    EXPECT_FALSE(Endpoint::RelatedShows({.showSlug = "a", .channel = std::nullopt}, context));
    EXPECT_FALSE(Endpoint::Search({.keyword = "a", .channel = std::nullopt}, context));
}

}  // namespace
}  // namespace VanticRestKit
