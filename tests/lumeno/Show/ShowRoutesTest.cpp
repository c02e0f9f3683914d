#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/lumeno/Show/ShowRoutes.h>

#include <type_traits>

namespace VanticRestKit {
namespace {

using Items = std::vector<URLQueryItem>;

const URLQueryItem highlight{"embed", "highlightVideo"};
const URLQueryItem everything{"embed", "highlightVideo,selectedSeries,seriesList"};

ShowURI showURI(std::optional<std::uint64_t> series, std::optional<std::string> video) {
    return ShowURI({.showSlugOrId = "s",
                    .series = series,
                    .videoHouseNumber = std::move(video),
                    .embedSeries = false,
                    .channel = std::nullopt});
}

Items showItems(bool embedSeries, std::optional<std::string> channel) {
    return ShowURI({.showSlugOrId = "s",
                    .series = std::nullopt,
                    .videoHouseNumber = std::nullopt,
                    .embedSeries = embedSeries,
                    .channel = std::move(channel)})
        .queryItems();
}

void expectAGetWithoutABody(const ResourceURI& route) {
    EXPECT_EQ(route.httpMethod(), std::nullopt);
    EXPECT_EQ(route.postData(), std::nullopt);
}

TEST(ShowURI, TakesItsArgumentsInADifferentOrderThanItsFields) {
    // The channel is the last argument, but comes before `embedSeries` among the fields.
    const ShowURI route(
        {.showSlugOrId = "s", .series = 3u, .videoHouseNumber = "V", .embedSeries = true, .channel = "c"});
    const auto& [showSlugOrId, series, videoHouseNumber, channel, embedSeries] = route;
    EXPECT_EQ(showSlugOrId, "s");
    EXPECT_EQ(series, 3U);
    EXPECT_EQ(videoHouseNumber, "V");
    EXPECT_EQ(channel, "c");
    EXPECT_TRUE(embedSeries);
    static_assert(!std::is_aggregate_v<ShowURI> && !std::is_default_constructible_v<ShowURI>);
}

TEST(ShowURI, ContainsOnlyTheShowWithoutASeriesOrAVideo) {
    EXPECT_EQ(showURI(std::nullopt, std::nullopt).path(), "v2/show/s");
}

TEST(ShowURI, ContainsTheSeriesInDecimal) {
    EXPECT_EQ(showURI(3, std::nullopt).path(), "v2/show/s/series/3");
    EXPECT_EQ(showURI(0, std::nullopt).path(), "v2/show/s/series/0");
    EXPECT_EQ(showURI(18446744073709551615U, std::nullopt).path(), "v2/show/s/series/18446744073709551615");
}

TEST(ShowURI, ContainsTheVideoButNotTheSeriesIfBothAreGiven) {
    EXPECT_EQ(showURI(std::nullopt, "V").path(), "v2/show/s/video/V");
    EXPECT_EQ(showURI(3, "V").path(), "v2/show/s/video/V");
}

TEST(ShowURI, TreatsAnEmptyVideoAsGiven) {
    EXPECT_EQ(showURI(std::nullopt, "").path(), "v2/show/s/video/");
    EXPECT_EQ(showURI(3, "").path(), "v2/show/s/video/");
}

TEST(ShowURI, NeitherEscapesNorValidatesItsArguments) {
    EXPECT_EQ(ShowURI({.showSlugOrId = "a b/../c?d=%20",
                       .series = std::nullopt,
                       .videoHouseNumber = "\xc3\xa9#",
                       .embedSeries = false,
                       .channel = std::nullopt})
                  .path(),
              "v2/show/a b/../c?d=%20/video/\xc3\xa9#");
    EXPECT_EQ(ShowURI({.showSlugOrId = "",
                       .series = std::nullopt,
                       .videoHouseNumber = std::nullopt,
                       .embedSeries = false,
                       .channel = std::nullopt})
                  .path(),
              "v2/show/");
}

TEST(ShowURI, AlwaysEmbedsTheHighlightAndTheSeriesIfWanted) {
    EXPECT_EQ(showItems(false, std::nullopt), Items{highlight});
    EXPECT_EQ(showItems(true, std::nullopt), Items{everything});
}

TEST(ShowURI, SendsTheChannelBeforeTheEmbedItem) {
    EXPECT_EQ(showItems(false, "c"), (Items{{"channel", "c"}, highlight}));
    EXPECT_EQ(showItems(true, " a&b"), (Items{{"channel", " a&b"}, everything}));
}

TEST(ShowURI, OmitsAnEmptyChannel) {
    EXPECT_EQ(showItems(false, ""), Items{highlight});
    EXPECT_EQ(showItems(true, ""), Items{everything});
}

TEST(ShowURI, IsAGetWithoutABody) { expectAGetWithoutABody(showURI(3, "V")); }

TEST(ShowURI, ComputesItsPathFromItsFields) {
    ShowURI route = showURI(std::nullopt, "V");
    route.videoHouseNumber = std::nullopt;
    route.series = 4;
    route.showSlugOrId = "other";
    EXPECT_EQ(ResourceURI(route).path(), "v2/show/other/series/4");
    EXPECT_NE(route, showURI(std::nullopt, "V"));
}

TEST(ShowURI, EqualsARouteWithTheSameFields) {
    EXPECT_EQ(showURI(3, "V"), showURI(3, "V"));
    EXPECT_NE(showURI(3, "V"), showURI(4, "V"));
    EXPECT_NE(showURI(3, "V"), showURI(3, "W"));
}

TEST(ShowsURI, JoinsSlugsAndIdsWithCommas) {
    EXPECT_EQ(ShowsURI{.showSlugsOrIds = {"a"}}.path(), "v2/shows/a");
    EXPECT_EQ((ShowsURI{.showSlugsOrIds = {"a", "7", "c d"}}.path()), "v2/shows/a,7,c d");
    EXPECT_EQ((ShowsURI{.showSlugsOrIds = {"a", "", "b,c"}}.path()), "v2/shows/a,,b,c");
}

TEST(ShowsURI, CanBeEmpty) { EXPECT_EQ(ShowsURI{}.path(), "v2/shows/"); }

TEST(ShowsURI, IsAGetWithoutQueryItemsAndWithoutABody) {
    const ResourceURI route = ShowsURI{.showSlugsOrIds = {"a"}};
    EXPECT_EQ(route.queryItems(), Items());
    expectAGetWithoutABody(route);
}

TEST(ShowsIndexURI, TakesItsArgumentsInADifferentOrderThanItsFields) {
    const ShowsIndexURI route({.closedCaptionOnly = true, .channel = "c"});
    const auto& [channel, closedCaptionOnly] = route;
    EXPECT_EQ(channel, "c");
    EXPECT_TRUE(closedCaptionOnly);
    static_assert(!std::is_aggregate_v<ShowsIndexURI> && !std::is_default_constructible_v<ShowsIndexURI>);
}

TEST(ShowsIndexURI, RequestsCaptionsInItsPath) {
    EXPECT_EQ(ShowsIndexURI({.closedCaptionOnly = false, .channel = std::nullopt}).path(), "v2/shows");
    EXPECT_EQ(ShowsIndexURI({.closedCaptionOnly = true, .channel = std::nullopt}).path(), "v2/shows/cc");
}

TEST(ShowsIndexURI, SendsANonEmptyChannel) {
    EXPECT_EQ(ShowsIndexURI({.closedCaptionOnly = false, .channel = "c"}).queryItems(),
              (Items{{"channel", "c"}}));
    EXPECT_EQ(ShowsIndexURI({.closedCaptionOnly = true, .channel = "c d"}).queryItems(),
              (Items{{"channel", "c d"}}));
    EXPECT_EQ(ShowsIndexURI({.closedCaptionOnly = false, .channel = std::nullopt}).queryItems(), Items());
}

TEST(ShowsIndexURI, OmitsAnEmptyChannelAndStillRequestsCaptions) {
    const ShowsIndexURI route({.closedCaptionOnly = true, .channel = ""});
    EXPECT_EQ(route.queryItems(), Items());
    EXPECT_EQ(route.path(), "v2/shows/cc");
}

TEST(ShowsIndexURI, IsAGetWithoutABody) {
    expectAGetWithoutABody(ShowsIndexURI({.closedCaptionOnly = true, .channel = "c"}));
}

}  // namespace
}  // namespace VanticRestKit
