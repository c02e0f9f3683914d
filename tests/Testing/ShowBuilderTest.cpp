#include <gtest/gtest.h>
#include <VanticRestKit/Testing/ShowBuilder.h>

#include <set>

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

TEST(ShowBuilderTest, BuildersCanBeNested) {
    const Show show = aShow().with("/_embedded/highlightVideo", aVideo().titled("The Purser")).value();
    EXPECT_EQ(show.highlightVideo->title, "The Purser");
}

}  // namespace
}  // namespace VanticRestKit::Testing
