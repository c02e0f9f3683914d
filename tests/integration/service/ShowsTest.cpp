#include "ServiceContext.h"

#include "support/SampleService.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <gmock/gmock.h>

namespace VanticRestKit::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;

Texts titlesOf(const std::vector<Show>& shows) {
    Texts titles;
    for (const auto& show : shows) titles.push_back(show.title.value_or("-"));
    return titles;
}

class SampleServiceShows : public ::testing::Test {
protected:
    std::optional<Show> show(const std::string& name, bool embedSeries,
                             std::optional<std::uint64_t> series = {},
                             std::optional<std::string> video = {}) const {
        return valueOf(Endpoint::Show({.showSlugOrId = name,
                                       .selectedSeries = series,
                                       .selectedVideo = std::move(video),
                                       .embedSeries = embedSeries,
                                       .channel = std::optional<std::string>()},
                                      context));
    }

    std::optional<SearchResults> search(const std::string& keyword,
                                        std::optional<std::string> channel = {}) const {
        return valueOf(Endpoint::Search({.keyword = keyword, .channel = std::move(channel)}, context));
    }

    SampleService service;
    ServiceContext context{service.baseURL()};
};

TEST_F(SampleServiceShows, AShowContainsItsSeriesEpisodesAndTrailer) {
    const auto loaded = show("harbour-lights", true);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->title, "Harbour Lights");
    EXPECT_EQ(loaded->showId, 11U);
    EXPECT_EQ(loaded->episodeCount, 6U);
    EXPECT_EQ(loaded->alertId, "new-series");
    EXPECT_TRUE(loaded->updated);
    EXPECT_TRUE(loaded->playableVideo);
    ASSERT_EQ(loaded->seriesList.size(), 2U);
    EXPECT_EQ(loaded->seriesList[0].title, "Series 1");
    EXPECT_THAT(loaded->seriesList[0].episodes, IsEmpty());
    ASSERT_TRUE(loaded->selectedSeries);
    EXPECT_EQ(loaded->selectedSeries->seriesId, "112");
    ASSERT_EQ(loaded->selectedSeries->episodes.size(), 3U);
    EXPECT_EQ(loaded->selectedSeries->episodes[1].title, "The Salvage Claim");
    ASSERT_EQ(loaded->videoExtras.size(), 1U);
    EXPECT_EQ(loaded->videoExtras[0].houseNumber, "HLT0001");
    ASSERT_TRUE(loaded->highlightVideo);
    EXPECT_EQ(loaded->highlightVideo->houseNumber, "HL0201");
    EXPECT_TRUE(loaded->highlightVideo->playlist);
}

TEST_F(SampleServiceShows, AShowWithoutSeriesContainsOnlyItsHighlight) {
    const auto loaded = show("11", false);
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->highlightVideo);
    EXPECT_FALSE(loaded->selectedSeries);
    EXPECT_THAT(loaded->seriesList, IsEmpty());
}

TEST_F(SampleServiceShows, ASeriesAndAVideoCanBeSelected) {
    const auto bySeries = show("harbour-lights", true, 111);
    ASSERT_TRUE(bySeries && bySeries->selectedSeries);
    EXPECT_EQ(bySeries->selectedSeries->seriesId, "111");
    const auto byVideo = show("harbour-lights", true, 112, "HL0102");
    ASSERT_TRUE(byVideo && byVideo->selectedSeries && byVideo->highlightVideo);
    EXPECT_EQ(byVideo->selectedSeries->seriesId, "111") << "the video takes precedence";
    EXPECT_EQ(byVideo->highlightVideo->title, "Slack Water");
}

TEST_F(SampleServiceShows, AnHrefLeadsFromTheShowToTheSeriesAndBack) {
    const auto loaded = show("harbour-lights", true);
    ASSERT_TRUE(loaded && loaded->selectedSeries);
    const auto series =
        valueOf(Endpoint::Series({.usingHref = loaded->selectedSeries->selfHref.value_or("")}, context));
    ASSERT_TRUE(series);
    EXPECT_EQ(series, loaded->selectedSeries);
    EXPECT_EQ(series->derivedShowSlug(), "harbour-lights");
    EXPECT_EQ(series->extrasTitle, "Trailers");
    const auto back = valueOf(Endpoint::Show({.usingHref = series->showHref.value_or("")}, context));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->showId, series->showId);
}

TEST_F(SampleServiceShows, ABlockedFilmStatesTheReason) {
    const auto film = show("midnight-weighbridge", true);
    ASSERT_TRUE(film);
    EXPECT_EQ(film->subtype, LumenoSubtype::feature);
    EXPECT_EQ(film->blockedTitle, "Not yet");
    EXPECT_TRUE(film->buyAppleItmsUrl);
    EXPECT_FALSE(film->updated);
    EXPECT_THAT(film->seriesList, IsEmpty());
}

TEST_F(SampleServiceShows, ShowsAreReturnedByNameInTheRequestedOrder) {
    const auto names = Texts{"night-ferry", "11", "nobody"};
    const auto shows = valueOf(Endpoint::Shows({.showSlugsOrIds = names}, context));
    ASSERT_TRUE(shows);
    EXPECT_THAT(titlesOf(*shows), ElementsAre("Night Ferry", "Harbour Lights"));
    EXPECT_EQ(valueOf(Endpoint::Shows({.showSlugsOrIds = Texts{}}, context)), std::vector<Show>{});
}

TEST_F(SampleServiceShows, TheIndexListsAllShowsByLetterWithSummariesOfAllDatedOnes) {
    const auto index = valueOf(
        Endpoint::ShowsList({.channel = std::optional<std::string>(), .closedCaptionOnly = false}, context));
    ASSERT_TRUE(index);
    EXPECT_EQ(index->alertId, "captions");
    std::size_t shows = 0, summaries = 0;
    for (const auto& group : index->groups) {
        shows += group.shows.size();
        summaries += group.showSummaries.size();
    }
    EXPECT_EQ(shows, 48U);
    EXPECT_EQ(summaries, 47U);
    EXPECT_EQ(index->groups.front().groupingName, "B");
    EXPECT_THAT(titlesOf(index->groups.front().shows),
                ElementsAre("Backyard Lab", "Below the Breakwater", "The Brass Octopus"));
}

TEST_F(SampleServiceShows, TheIndexOfAChannelListsItsShowsOrOnlyThoseWithCaptions) {
    const auto count = [&](bool closedCaptionOnly) {
        const auto index = valueOf(Endpoint::ShowsList(
            {.channel = std::optional<std::string>("vantic-kids"), .closedCaptionOnly = closedCaptionOnly},
            context));
        std::size_t shows = 0;
        for (const auto& group : index ? index->groups : std::vector<ShowsGrouped>()) {
            for (const auto& one : group.shows) {
                EXPECT_EQ(one.channel, "vantic-kids");
                EXPECT_TRUE(one.captionsAvailable || !closedCaptionOnly);
                ++shows;
            }
        }
        return shows;
    };
    EXPECT_EQ(count(false), 8U);
    EXPECT_EQ(count(true), 7U);
}

TEST_F(SampleServiceShows, RelatedShowsAreTheNearestAndNeverTheShowItself) {
    const auto related = [&](std::optional<std::string> channel) {
        return valueOf(
            Endpoint::RelatedShows({.showSlug = "harbour-lights", .channel = std::move(channel)}, context));
    };
    const auto all = related(std::nullopt);
    ASSERT_TRUE(all);
    ASSERT_EQ(all->items.size(), 6U);
    EXPECT_EQ(all->items.front().title, "Night Ferry");
    const auto ofOne = related("vantic-one");
    ASSERT_TRUE(ofOne);
    EXPECT_FALSE(ofOne->items.empty());
    for (const auto& show : ofOne->items) EXPECT_EQ(show.channel, "vantic-one");
}

TEST_F(SampleServiceShows, ASearchFindsByTitlePersonAndEpisode) {
    const auto found = search("ferry");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->keyword, "ferry");
    EXPECT_THAT(titlesOf(found->items), ElementsAre("Night Ferry"));
    EXPECT_THAT(titlesOf(search("odile brannagh")->items), ElementsAre("Harbour Lights"));
    EXPECT_THAT(titlesOf(search("Caf\u00e9 & Tile")->items), IsEmpty());
    EXPECT_THAT(titlesOf(search("The Caf\u00e9 Tile")->items), ElementsAre("Copper & Clay"));
}

TEST_F(SampleServiceShows, ASearchWithoutResultsRepeatsTheKeyword) {
    const auto nothing = search("zeppelin");
    ASSERT_TRUE(nothing);
    EXPECT_EQ(nothing->keyword, "zeppelin");
    EXPECT_THAT(nothing->items, IsEmpty());
    EXPECT_THAT(search("ferry", "vantic-kids")->items, IsEmpty());
    EXPECT_EQ(search("")->keyword, "");
}

}  // namespace

}  // namespace VanticRestKit::test
