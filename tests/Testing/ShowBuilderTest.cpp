#include <gtest/gtest.h>
#include <VanticRestKit/Testing/ShowBuilder.h>

#include <cstdint>
#include <set>
#include <vector>

namespace VanticRestKit::Testing {
namespace {

TEST(ShowBuilderTest, MakesAShowWithSeriesAndEpisodesInOneLine) {
    const Show show = aShow().titled("Night Ferry").withSeries(2).episodes(6).value();
    EXPECT_EQ(show.title, "Night Ferry");
    EXPECT_EQ(show.slug, "night-ferry");
    EXPECT_EQ(show.selfHref, "/show/night-ferry");
    EXPECT_EQ(show.episodeCount, 12U);
    ASSERT_EQ(show.seriesList.size(), 2U);
    EXPECT_EQ(show.seriesList[1].title, "Series 2");
    EXPECT_EQ(show.seriesList[1].showTitle, "Night Ferry");
    ASSERT_TRUE(show.selectedSeries);
    EXPECT_EQ(show.selectedSeries->episodes.size(), 6U);
    EXPECT_EQ(show.highlightVideo->houseNumber, "HL0101");
}

TEST(ShowBuilderTest, TheBuildersOfItsPartsAreConsistentWithIt) {
    const ShowBuilder show = aShow().titled("Night Ferry").withCode("NF").withSeries(2).episodes(3);
    const Series series = show.series(2).value();
    ASSERT_EQ(series.episodes.size(), 3U);
    EXPECT_EQ(series.selfHref, show.value().seriesList[1].selfHref);
    const Video video = show.episode(2, 3).value();
    EXPECT_EQ(video.houseNumber, "NF0203");
    EXPECT_EQ(video.houseNumber, series.episodes[2].houseNumber);
    EXPECT_EQ(video.showTitle, "Night Ferry");
    EXPECT_TRUE(video.playlist);
}

TEST(ShowBuilderTest, EpisodesOfLongSeriesHaveUniqueIds) {
    const ShowBuilder show = aShow().withSeries(2).episodes(26);
    std::set<std::string> hrefs;
    for (const std::uint32_t series : {1U, 2U}) {
        for (const Video& video : show.series(series).value().episodes) hrefs.insert(*video.selfHref);
    }
    EXPECT_EQ(hrefs.size(), 52U);
}

TEST(ShowBuilderTest, AFilmHasOneVideoAndNoSeries) {
    const Show film = aShow().titled("The Long Quay").asFilm().value();
    EXPECT_TRUE(film.seriesList.empty());
    EXPECT_TRUE(film.duration);
    EXPECT_EQ(film.highlightVideo->title, "The Long Quay");
}

TEST(ShowBuilderTest, AnyPlaceOfTheDocumentCanBeChanged) {
    const Show show = aShow()
                          .with("kickerTitle", "New")
                          .with("/_links/self/href", "/show/elsewhere")
                          .with("/relatedLinks/-", JSONText::raw(R"({"title":"More","href":"/more"})"))
                          .without("thumbnail")
                          .without("no such key")
                          .value();
    EXPECT_EQ(show.kickerTitle, "New");
    EXPECT_EQ(show.selfHref, "/show/elsewhere");
    ASSERT_FALSE(show.relatedLinks.empty());
    EXPECT_EQ(show.relatedLinks.back().title, "More");
    EXPECT_FALSE(show.thumbnail);
}

TEST(ShowBuilderTest, ADocumentThatDoesNotDecodeReportsTheError) {
    const auto decoded = aVideo().without("_links").decoded();
    EXPECT_FALSE(decoded);
}

TEST(ShowBuilderTest, EachFieldOfAVideoCanBeSet) {
    const Video video = aVideo()
                            .titled("The Pilot Boat")
                            .ofShow("Harbour Lights")
                            .withHouseNumber("ZW1")
                            .lasting(std::chrono::minutes(24))
                            .notPlayable()
                            .value();
    EXPECT_EQ(video.title, "The Pilot Boat");
    EXPECT_EQ(video.showTitle, "Harbour Lights");
    EXPECT_EQ(video.houseNumber, "ZW1");
    EXPECT_EQ(video.selfHref, "/video/ZW1");
    EXPECT_EQ(video.duration, 1440U);
    EXPECT_EQ(video.displayDuration, "24m");
    EXPECT_FALSE(video.playable);
    EXPECT_FALSE(video.playlist);
}

TEST(ShowBuilderTest, SlugsAreDerivedFromTitles) {
    EXPECT_EQ(Programme{.title = "  A  Berth, for Winter! "}.effectiveSlug(), "a-berth-for-winter");
    EXPECT_EQ((Programme{.title = "A", .slug = "b"}.effectiveSlug()), "b");
    EXPECT_EQ(Programme{.title = "?"}.effectiveSlug(), "untitled");
}

TEST(ShowBuilderTest, ASeriesCanBeBuiltWithoutItsShow) {
    const Series series = aSeries().titled("The First Winter").ofShow("Night Ferry").episodes(3).value();
    EXPECT_EQ(series.title, "The First Winter");
    EXPECT_EQ(series.showTitle, "Night Ferry");
    EXPECT_EQ(series.episodes.size(), 3U);
}

TEST(ShowBuilderTest, EpisodesOfOneSeriesDoNotChangeThoseOfTheOthers) {
    const SeriesBuilder series = SeriesBuilder(Programme{.episodes = {6, 6}}, 1).episodes(2);
    EXPECT_EQ(series.programme().episodes, (std::vector<std::uint32_t>{2, 6}));
}

TEST(ShowBuilderTest, SettingTheEpisodesOfAFurtherSeriesAddsIt) {
    const SeriesBuilder series = SeriesBuilder({}, 3).episodes(2);
    EXPECT_EQ(series.programme().episodes, (std::vector<std::uint32_t>{6, 2, 2}));
    EXPECT_EQ(series.value().title, "Series 3");
    EXPECT_EQ(series.value().episodes.size(), 2U);
}

TEST(ShowBuilderTest, ASeriesHasBuildersOfItsEpisodes) {
    EXPECT_EQ(aSeries().withCode("NF").episode(2).value().houseNumber, "NF0102");
    EXPECT_EQ(aShow().withSeries(2).series(2).episode(3).value().houseNumber, "HL0203");
}

TEST(ShowBuilderTest, AFilmThatIsGivenSeriesHasSixEpisodesInEach) {
    const ShowBuilder show = aShow().asFilm().withSeries(2);
    EXPECT_EQ(show.programme().episodes, (std::vector<std::uint32_t>{6, 6}));
}

TEST(ShowBuilderTest, AVideoOfAFilmIsTheFilm) {
    const ShowBuilder film = aShow().titled("The Long Quay").asFilm();
    const Video video = VideoBuilder(film.programme(), 0, 0).value();
    EXPECT_EQ(video.title, "The Long Quay");
    EXPECT_EQ(film.episode(1, 1).value().houseNumber, video.houseNumber);
}

TEST(ShowBuilderTest, AFilmHasNoDocumentOfASeries) {
    EXPECT_EQ(aShow().asFilm().series(1).document(), "null");
}

TEST(ShowBuilderTest, AChannelThatTheSampleServiceDoesNotHaveIsKept) {
    EXPECT_EQ(aShow().onChannel("harbour-radio").value().channel, "harbour-radio");
}

TEST(ShowBuilderTest, AnUnknownCategoryIsReplacedByTheFirstOne) {
    const JSONText unknown(aShow().inCategory("no such category"));
    EXPECT_EQ(unknown.text(), aShow().inCategory("drama").document());
}

TEST(ShowBuilderTest, BuildersCanBeNested) {
    const Show show = aShow().with("/_embedded/highlightVideo", aVideo().titled("The Purser")).value();
    EXPECT_EQ(show.highlightVideo->title, "The Purser");
}

}  // namespace
}  // namespace VanticRestKit::Testing
