// Tests the 23 fields of a series in every state.

#include <gtest/gtest.h>
#include <lumeno/Series/SeriesRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::serieses;

TEST(SeriesFields, AreTwentyThree) {
    ASSERT_EQ(serieses().fields.size(), 23U);
    test::expectDeclaredFields(serieses());
}

TEST(SeriesFields, AreReadFromTheirKeysOrLeftEmptyAndOnlyTheIdIsRequired) {
    test::expectFieldsInEveryState(serieses());
}

TEST(SeriesFields, AreEmptyWithoutTheirObjectAndOnlyTheLinksAreRequired) {
    test::expectContainersInEveryState(serieses());
}

TEST(SeriesFields, AreReadOnlyFromTheirOwnKeys) {
    // Keys similar to those of the fields, keys in the wrong object, and the ignored key.
    const std::string others =
        R"({"id":"1","seriesId":"x","shareUrl":"x","status":{"title":"x","theme":"live"},"extras":[{"_links":{}}],)"
        R"("videoExtras":[{"_links":{}}],"episodes":[{"_links":{}}],"highlightVideo":{"playTitle":"x"},"showId":1,)"
        R"("selfHref":"x","showHref":"x","deeplinkHref":"x","thumbnails":{"portrait":"x"},"Title":"x","playableVideo":{},)"
        R"("_links":{"href":"x","id":1,"Self":{"href":"x"},"self":{"id":"x","title":"x"},"deeplink":{"id":"x"},)"
        R"("show":{"title":"x","showId":1,"slug":"x"},"series":{"href":"x","id":"2"},"playableVideo":{"id":"x"},)"
        R"("videoEpisodes":[{"_links":{}}]},"_embedded":{"episodes":[{"_links":{}}],"extras":[{"_links":{}}],)"
        R"("extrasTitle":"x","show":{"href":"x","id":1}}})";
    EXPECT_EQ(decoded<Series>(others), Series{.seriesId = "1"});
}

TEST(SeriesFields, InitializeASeriesInDeclaredOrder) {
    const auto video = [](const char* id) {
        return Video{.videoId = id, .playableVideo = DirectPlayableVideo{.id = id}};
    };
    const Series series{
        .seriesId = "id",
        .title = "title",
        .kickerTitle = "kickerTitle",
        .showTitle = "showTitle",
        .displayTitle = "displayTitle",
        .displaySubtitle = "displaySubtitle",
        .description = "description",
        .thumbnail = "thumbnail",
        .episodeCount = 120,
        .participants = {{.title = "participants", .list = "A, B"}, {}, {}},
        .selfHref = "_links.self.href",
        .deeplinkHref = "_links.deeplink.href",
        .showHref = "_links.show.href",
        .channel = "channel",
        .channelTitle = "channelTitle",
        .highlightVideo = video("_embedded.highlightVideo"),
        .episodes = {video("_embedded.videoEpisodes"), video("b")},
        .extras = {video("_embedded.videoExtras"), video("b")},
        .extrasTitle = "extrasTitle",
        .classification = "classification",
        .tags = {"a", "tags"},
        .showId = 120,
        .playableVideo = DirectPlayableVideo{.id = "a", .href = "b", .playTitle = "_links.highlightVideo"},
    };
    const auto full = decoded<Series>(test::fullDocument(serieses()));
    ASSERT_TRUE(full);
    EXPECT_EQ(valueText(*full), valueText(series));
    EXPECT_EQ(*full, series);
}

}  // namespace
}  // namespace VanticRestKit
