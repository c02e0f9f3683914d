// Requests for shows, their index and series, and the handling of the responses.

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <lumeno/Endpoints/Sent.h>

namespace VanticRestKit {
namespace {

using test::answered;
using test::CatalogueContext;
using test::expectADecodingFailure;
using test::sent;

/// The request for a show.
std::string sentForShow(std::optional<std::uint64_t> series, std::optional<std::string> video,
                        bool embedSeries, std::optional<std::string> channel) {
    return sent([&](const Context& context) {
        return Endpoint::Show({.showSlugOrId = "lantern-road",
                               .selectedSeries = series,
                               .selectedVideo = video,
                               .embedSeries = embedSeries,
                               .channel = channel},
                              context);
    });
}

TEST(EndpointShow, SendsEachOfItsArguments) {
    const std::string show = "GET https://api.example.test/v2/show/lantern-road";
    const std::string series = "embed=highlightVideo,selectedSeries,seriesList";
    EXPECT_EQ(sentForShow(std::nullopt, std::nullopt, false, std::nullopt), show + "?embed=highlightVideo");
    EXPECT_EQ(sentForShow(std::nullopt, std::nullopt, true, std::nullopt), show + "?" + series);
    EXPECT_EQ(sentForShow(3, std::nullopt, true, std::nullopt), show + "/series/3?" + series);
    EXPECT_EQ(sentForShow(3, "ZW1", false, std::nullopt), show + "/video/ZW1?embed=highlightVideo");
    EXPECT_EQ(sentForShow(std::nullopt, "ZW1", true, "one"), show + "/video/ZW1?channel=one&" + series);
    EXPECT_EQ(sentForShow(std::nullopt, std::nullopt, false, ""), show + "?embed=highlightVideo");
}

TEST(EndpointShow, EscapesOnlyWhatAURLRequires) {
    EXPECT_EQ(
        sent([](const Context& context) {
            return Endpoint::Show({.showSlugOrId = "a b?",
                                   .selectedSeries = std::nullopt,
                                   .selectedVideo = "c/d",
                                   .embedSeries = false,
                                   .channel = "e&f g"},
                                  context);
        }),
        "GET https://api.example.test/v2/show/a%20b%3F/video/c/d?channel=e%26f%20g&embed=highlightVideo");
}

TEST(EndpointShow, RequestsAnHrefWithoutQueryItems) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Show({.usingHref = "show/lantern-road"}, context);
              }),
              "GET https://api.example.test/v2/show/lantern-road");
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Show({.usingHref = "/show/x"}, context); }),
              "GET https://api.example.test/v2//show/x");
}

TEST(EndpointShow, DecodesAShow) {
    const CatalogueContext context;
    const auto show = answered(
        context, Endpoint::Show({.usingHref = "show/x"}, context),
        R"({"_entity":"Show","id":7,"title":1,"_embedded":{"seriesList":[{"id":"s","_links":{}}]}})");
    ASSERT_TRUE(show);
    EXPECT_EQ(*show, (Show{.showId = 7, .theme = Theme::default_, .seriesList = {{.seriesId = "s"}}}));
}

TEST(EndpointShow, FailsToDecodeAnotherEntityAndNamesIt) {
    const CatalogueContext context;
    const auto show =
        answered(context, Endpoint::Show({.usingHref = "video/x"}, context), R"({"_entity":"Video"})");
    ASSERT_FALSE(show);
    EXPECT_EQ(show.error().kind(), LoaderError::Kind::failedToDecode);
    ASSERT_TRUE(show.error().underlyingError());
    const auto* const mismatch = show.error().underlyingError()->as<Show::DecodingError>();
    ASSERT_NE(mismatch, nullptr);
    EXPECT_EQ(mismatch->found(), "Video");
}

TEST(EndpointShow, FailsWithTheNetworkError) {
    const CatalogueContext context;
    const auto show = answered(context, Endpoint::Show({.usingHref = "show/x"}, context), "{}", 404);
    ASSERT_FALSE(show);
    EXPECT_EQ(show.error().kind(), LoaderError::Kind::serverError);
    EXPECT_TRUE(show.error().is404Error());
}

TEST(EndpointShows, RequestsAllSlugsAndIdsAtOnce) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Shows({.showSlugsOrIds = {"a", "7"}}, context);
              }),
              "GET https://api.example.test/v2/shows/a,7");
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Shows({.showSlugsOrIds = std::vector<std::string>{}}, context);
              }),
              "GET https://api.example.test/v2/shows/");
}

TEST(EndpointShows, DecodesABareList) {
    const CatalogueContext context;
    const auto shows =
        answered(context, Endpoint::Shows({.showSlugsOrIds = {"a", "b"}}, context), R"([{"slug":"a"},{}])");
    ASSERT_TRUE(shows);
    ASSERT_EQ(shows->size(), 2U);
    EXPECT_EQ(shows->at(0).slug, "a");
}

TEST(EndpointShows, FailsToDecodeIfOneShowFails) {
    for (const char* const body : {R"([{},{"_entity":"video"}])", "[{},7]", "[null]", R"({"items":[]})"}) {
        const CatalogueContext context;
        expectADecodingFailure(answered(context, Endpoint::Shows({.showSlugsOrIds = {"a"}}, context), body),
                               body);
    }
}

TEST(EndpointShowsList, RequestsTheIndexOfAllOrOneChannelWithOrWithoutCaptions) {
    const auto sentForList = [](std::optional<std::string> channel, bool closedCaptionOnly) {
        return sent([&](const Context& context) {
            return Endpoint::ShowsList({.channel = channel, .closedCaptionOnly = closedCaptionOnly}, context);
        });
    };
    EXPECT_EQ(sentForList(std::nullopt, false), "GET https://api.example.test/v2/shows");
    EXPECT_EQ(sentForList(std::nullopt, true), "GET https://api.example.test/v2/shows/cc");
    EXPECT_EQ(sentForList("one", false), "GET https://api.example.test/v2/shows?channel=one");
    EXPECT_EQ(sentForList("one", true), "GET https://api.example.test/v2/shows/cc?channel=one");
    EXPECT_EQ(sentForList("", true), "GET https://api.example.test/v2/shows/cc");
}

TEST(EndpointShowsList, DecodesGroups) {
    const CatalogueContext context;
    const auto index =
        answered(context, Endpoint::ShowsList({.channel = std::nullopt, .closedCaptionOnly = false}, context),
                 R"({"items":[{"name":"A","items":[{}]}],"_links":{"alert":{"id":"7"}}})");
    ASSERT_TRUE(index);
    EXPECT_EQ(index->groups,
              (std::vector<ShowsGrouped>{{.groupingName = "A", .shows = {{.theme = Theme::default_}}}}));
    EXPECT_EQ(index->alertId, "7");
}

TEST(EndpointShowsList, FailsToDecodeIfOneShowFails) {
    for (const char* const body : {R"({"items":[{"name":"A","items":[{"_entity":"video"}]}]})", "{}", "[]"}) {
        const CatalogueContext context;
        expectADecodingFailure(
            answered(context,
                     Endpoint::ShowsList({.channel = std::nullopt, .closedCaptionOnly = false}, context),
                     body),
            body);
    }
}

TEST(EndpointSeries, RequestsAnHref) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Series({.usingHref = "show/x/series/1"}, context);
              }),
              "GET https://api.example.test/v2/show/x/series/1");
}

TEST(EndpointSeries, DecodesASeriesWhateverItsEntityName) {
    const CatalogueContext context;
    const auto series = answered(context, Endpoint::Series({.usingHref = "x"}, context),
                                 R"({"_entity":"video","id":"1","_links":{}})");
    ASSERT_TRUE(series);
    EXPECT_EQ(*series, Series{.seriesId = "1"});
}

TEST(EndpointSeries, FailsToDecodeWithoutIdOrLinks) {
    for (const char* const body :
         {R"({"id":"1"})", R"({"_links":{}})", R"({"id":1,"_links":{}})", "[]", ""}) {
        const CatalogueContext context;
        expectADecodingFailure(answered(context, Endpoint::Series({.usingHref = "x"}, context), body), body);
    }
}

TEST(EndpointsOfShows, AreAbsentIfTheContextMakesNoRequest) {
    const test::NoRequestContext context;
    EXPECT_FALSE(Endpoint::Show({.showSlugOrId = "a",
                                 .selectedSeries = std::nullopt,
                                 .selectedVideo = std::nullopt,
                                 .embedSeries = false,
                                 .channel = std::nullopt},
                                context));
    EXPECT_FALSE(Endpoint::Show({.usingHref = "a"}, context));
    EXPECT_FALSE(Endpoint::Shows({.showSlugsOrIds = {"a"}}, context));
    EXPECT_FALSE(Endpoint::ShowsList({.channel = std::nullopt, .closedCaptionOnly = false}, context));
    EXPECT_FALSE(Endpoint::Series({.usingHref = "a"}, context));
}

}  // namespace
}  // namespace VanticRestKit
