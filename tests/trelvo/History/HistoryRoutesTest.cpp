// The requests of the viewing history. The order of the query items differs between routes.

#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/History/HistoryRoutes.h>

#include <trelvo/Common/RouteText.h>
#include <limits>

namespace VanticRestKit {
namespace {

using test::routeText;

constexpr SourceSystem source = SourceSystem::lumeno;
constexpr TrelvoSlug slug = TrelvoSlug::watchlist;

std::string recent(std::optional<bool> markedAsDone) {
    return routeText(RecentVideoHistoryURI{
        .markedAsDone = markedAsDone, .uid = "u", .source = source, .limit = 20, .slug = slug});
}

std::string forShow(std::optional<bool> markedAsDone) {
    return routeText(VideoHistoryForShowURI{
        .markedAsDone = markedAsDone, .uid = "u", .source = source, .slug = slug, .showId = 42});
}

UpdateVideoProgressURI update(std::int64_t progress, bool isDone) {
    return {.uid = "u",
            .source = source,
            .showId = 42,
            .houseNumber = "ZW1",
            .progress = progress,
            .isDone = isDone};
}

TEST(DeleteHistoryURI, DeletesTheWatchlistsHistory) {
    EXPECT_EQ(routeText(DeleteHistoryURI{.uid = "u", .source = source}),
              "DELETE v2/history [UID=u, source=lumeno, slug=watchlist]");
}

TEST(VideoHistoryURI, RequestsTheGivenNumberOfVideos) {
    EXPECT_EQ(routeText(VideoHistoryURI({.uid = "u", .source = source, .slug = slug, .limit = 20u})),
              "- v2/history/video [UID=u, slug=watchlist, source=lumeno, raw=1, limit=20]");
}

TEST(VideoHistoryURI, StoresItsPathAndQueryItems) {
    VideoHistoryURI route(
        {.uid = "u", .source = source, .slug = slug, .limit = std::numeric_limits<std::uint64_t>::max()});
    EXPECT_EQ(route.path, "v2/history/video");
    ASSERT_EQ(route.queryItems.size(), 5U);
    EXPECT_EQ(route.queryItems.back(), (URLQueryItem{"limit", "18446744073709551615"}));
    route.path = "elsewhere";
    route.queryItems.resize(1);
    EXPECT_EQ(routeText(route), "- elsewhere [UID=u]");
}

TEST(RecentVideoHistoryURI, AlwaysSendsWhetherToIncludeDoneVideos) {
    EXPECT_EQ(recent(true),
              "- v2/history/video/recent [UID=u, slug=watchlist, source=lumeno, done=1, raw=1, limit=20]");
    EXPECT_EQ(recent(false),
              "- v2/history/video/recent [UID=u, slug=watchlist, source=lumeno, done=0, raw=1, limit=20]");
    EXPECT_EQ(recent(std::nullopt), recent(false));
}

TEST(VideoHistoryForShowURI, SendsWhetherToIncludeDoneVideosOnlyIfGiven) {
    EXPECT_EQ(forShow(true), "- v2/history/show/42 [UID=u, slug=watchlist, source=lumeno, raw=1, done=1]");
    EXPECT_EQ(forShow(false), "- v2/history/show/42 [UID=u, slug=watchlist, source=lumeno, raw=1, done=0]");
    EXPECT_EQ(forShow(std::nullopt), "- v2/history/show/42 [UID=u, slug=watchlist, source=lumeno, raw=1]");
}

TEST(VideoProgressURI, RequestsOneVideoOfAShow) {
    EXPECT_EQ(routeText(VideoProgressURI{.uid = "u", .source = source, .showId = 42, .houseNumber = "ZW1"}),
              "- v2/history/show/42/video/ZW1 [UID=u, source=lumeno, slug=watchlist, raw=1]");
}

TEST(UpdateVideoProgressURI, PatchesWithTheProgressInThePathAndWithoutABody) {
    EXPECT_EQ(routeText(update(90, true)),
              "PATCH v2/history/show/42/video/ZW1/progress/90 [UID=u, source=lumeno, slug=watchlist, raw=1, "
              "done=1]");
    EXPECT_EQ(routeText(update(0, false)),
              "PATCH v2/history/show/42/video/ZW1/progress/0 [UID=u, source=lumeno, slug=watchlist, raw=1, "
              "done=0]");
    EXPECT_EQ(ResourceURI(update(90, true)).postData(), std::nullopt);
}

TEST(HistoryRoutes, PutNumbersAndHouseNumbersIntoThePathUnchanged) {
    EXPECT_EQ(ResourceURI(update(-5, false)).path(), "v2/history/show/42/video/ZW1/progress/-5");
    EXPECT_EQ(ResourceURI(VideoProgressURI{.showId = -1, .houseNumber = "a b/c"}).path(),
              "v2/history/show/-1/video/a b/c");
    EXPECT_EQ(ResourceURI(VideoProgressURI{.showId = 7, .houseNumber = ""}).path(),
              "v2/history/show/7/video/");
    EXPECT_EQ(ResourceURI(VideoHistoryForShowURI{.showId = std::numeric_limits<std::int64_t>::min()}).path(),
              "v2/history/show/-9223372036854775808");
}

}  // namespace
}  // namespace VanticRestKit
