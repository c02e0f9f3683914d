#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Series/Series.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;

const std::string playTitle = R"({"playTitle":"p"})";
const std::string video = R"({"id":"v","_links":{}})";

/// A series with these members and links.
Series series(const std::string& members, const std::string& links = "{}") {
    const auto series = decoded<Series>("{\"id\":\"1\"" + std::string(members.empty() ? "" : ",") + members +
                                        ",\"_links\":" + links + "}");
    EXPECT_TRUE(series) << members << links;
    return series.value_or(Series{});
}

TEST(Series, NeedsOnlyAnIdAndLinks) {
    const Series minimal = series("");
    EXPECT_EQ(minimal, Series{.seriesId = "1"});
    EXPECT_TRUE(minimal.participants.empty() && minimal.tags.empty() && minimal.episodes.empty() &&
                minimal.extras.empty());
    EXPECT_EQ(minimal.title, std::nullopt);
    EXPECT_EQ(minimal.highlightVideo, std::nullopt);
    EXPECT_EQ(minimal.playableVideo, std::nullopt);
}

TEST(Series, FailsWithoutLinksAlthoughNoFieldNeedsThem) {
    EXPECT_EQ(failureOf<Series>(R"({"id":"1"})"), R"(keyNotFound ["_links"])");
    EXPECT_EQ(failureOf<Series>(R"({"id":"1","_links":null})"), R"(valueNotFound ["_links"])");
    EXPECT_EQ(failureOf<Series>(R"({"id":"1","_links":"x"})"), R"(typeMismatch ["_links"])");
}

TEST(Series, FailsForAnIdThatIsNotAString) {
    EXPECT_EQ(failureOf<Series>(R"({"id":1,"_links":{}})"), R"(typeMismatch ["id"])");
    EXPECT_EQ(failureOf<Series>(R"({"id":null,"_links":{}})"), R"(valueNotFound ["id"])");
    EXPECT_EQ(failureOf<Series>(R"({"_links":{}})"), R"(keyNotFound ["id"])");
}

TEST(Series, CanHaveAnEmptyId) {
    const auto series = decoded<Series>(R"({"id":"","_links":{}})");
    ASSERT_TRUE(series);
    EXPECT_EQ(series->seriesId, "");
}

TEST(Series, ReadsItsIdBeforeItsLinksWhateverTheirOrder) {
    EXPECT_EQ(failureOf<Series>("{}"), R"(keyNotFound ["id"])");
    EXPECT_EQ(failureOf<Series>(R"({"_links":7,"id":7})"), R"(typeMismatch ["id"])");
    EXPECT_EQ(failureOf<Series>(R"({"_links":{"\ud800":1}})"), R"(keyNotFound ["id"])");
    EXPECT_EQ(failureOf<Series>(R"({"id":7,"\ud800":1})"), "dataCorrupted []");
}

TEST(Series, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Series>); }

TEST(Series, AcceptsAnyEntity) {
    for (const char* const entity :
         {"\"series\"", "\"video\"", "\"SHOW\"", "\"promo\"", "\"\"", "7", "null", "[]"}) {
        EXPECT_EQ(series("\"_entity\":" + std::string(entity)), Series{.seriesId = "1"}) << entity;
    }
}

TEST(Series, IgnoresATitleThatIsNotAString) { EXPECT_EQ(series(R"("title":5)"), Series{.seriesId = "1"}); }

TEST(Series, HasNoSelfHrefIfTheSelfLinkIsAString) {
    EXPECT_EQ(series("", R"({"self":"x","deeplink":{"href":"d"}})"),
              (Series{.seriesId = "1", .deeplinkHref = "d"}));
}

TEST(Series, HasAShowHrefEvenIfTheShowIdIsAString) {
    EXPECT_EQ(series("", R"({"show":{"href":"h","id":"7"}})"), (Series{.seriesId = "1", .showHref = "h"}));
}

TEST(Series, HasANumericShowIdWithoutAShowHref) {
    EXPECT_EQ(series("", R"({"show":{"id":7}})"), (Series{.seriesId = "1", .showId = 7}));
    EXPECT_EQ(series("", R"({"show":{"id":7,"href":5}})"), (Series{.seriesId = "1", .showId = 7}));
}

TEST(Series, HasNoVideosIfEmbeddedIsAList) {
    EXPECT_EQ(series("\"title\":\"t\",\"_embedded\":[" + video + "]"),
              (Series{.seriesId = "1", .title = "t"}));
    EXPECT_EQ(series(R"("_embedded":[])"), Series{.seriesId = "1"});
}

TEST(Series, LosesAllEpisodesIfOneOfTenIsFaultyAndKeepsTheExtras) {
    std::string nine;
    for (int i = 0; i < 9; ++i) nine += video + ",";
    const auto embedded = [&](const std::string& tenth) {
        return series("\"_embedded\":{\"videoEpisodes\":[" + nine + tenth + "],\"videoExtras\":[" + video +
                      "]}");
    };
    EXPECT_EQ(embedded(video).episodes.size(), 10U);
    for (const char* const bad : {"{}", "null", "7", R"({"_entity":"show","_links":{}})"}) {
        const Series without = embedded(bad);
        EXPECT_EQ(without.episodes, std::vector<Video>()) << bad;
        ASSERT_EQ(without.extras.size(), 1U) << bad;
        EXPECT_EQ(without.extras[0].videoId, "v") << bad;
    }
}

TEST(Series, ReadsItsEpisodesOnlyFromAList) {
    EXPECT_TRUE(series("\"_embedded\":{\"videoEpisodes\":{\"items\":[" + video + "]}}").episodes.empty());
    EXPECT_EQ(series("\"_embedded\":{\"highlightVideo\":[" + video + "]}").highlightVideo, std::nullopt);
}

TEST(Series, DoesNotFillOneHighlightFromTheOther) {
    const Series embedded = series("\"_embedded\":{\"highlightVideo\":" + video + "}");
    ASSERT_TRUE(embedded.highlightVideo);
    EXPECT_EQ(embedded.highlightVideo->videoId, "v");
    EXPECT_EQ(embedded.playableVideo, std::nullopt);
    const Series linked = series("", "{\"highlightVideo\":" + playTitle + "}");
    EXPECT_EQ(linked.highlightVideo, std::nullopt);
    EXPECT_EQ(linked.playableVideo, DirectPlayableVideo{.playTitle = "p"});
}

TEST(Series, RefersToTheVideoOfItsHighlightLink) {
    const Series linked =
        series("", R"({"self":{"href":"s"},"highlightVideo":{"id":"a","href":"b","playTitle":"c"}})");
    EXPECT_EQ(linked.playableVideo, (DirectPlayableVideo{.id = "a", .href = "b", .playTitle = "c"}));
}

TEST(Series, ReadsTheEpisodeCountOnlyFromAnUnsignedNumber) {
    EXPECT_EQ(series(R"("episodeCount":-1)").episodeCount, std::nullopt);
    EXPECT_EQ(series(R"("episodeCount":2.5)").episodeCount, std::nullopt);
    EXPECT_EQ(series(R"("episodeCount":"2")").episodeCount, std::nullopt);
    EXPECT_EQ(series(R"("episodeCount":2)").episodeCount, 2U);
}

TEST(Series, DoesNotCountItsEpisodesItself) {
    const std::string one = "\"_embedded\":{\"videoEpisodes\":[" + video + "]}";
    EXPECT_EQ(series(one).episodeCount, std::nullopt);
    const Series odd = series("\"episodeCount\":12," + one);
    EXPECT_EQ(odd.episodeCount, 12U);
    EXPECT_EQ(odd.episodes.size(), 1U);
}

TEST(Series, IgnoresItsShareAddress) {
    EXPECT_EQ(series(R"("shareUrl":"https://watch.example/s")"), Series{.seriesId = "1"});
    EXPECT_EQ(series(R"("shareUrl":{"\ud800":7})"), Series{.seriesId = "1"});
}

TEST(Series, ListsItsShareAddressAsItsOnlyIgnoredKey) {
    EXPECT_EQ(test::ignoredKeys(planOf<Series>()), std::vector<std::string>{"shareUrl"});
}

TEST(Series, LosesAllTagsIfOneIsNotAString) {
    EXPECT_EQ(series(R"("tags":["a","b"])").tags, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(series(R"("tags":["a",1])").tags, std::vector<std::string>());
}

TEST(Series, FindsTheSlugOfItsShowInItsDeeplink) {
    EXPECT_EQ(Series{.deeplinkHref = "/show/some-slug/series/2"}.derivedShowSlug(), "some-slug");
    EXPECT_EQ(Series{.deeplinkHref = "show/some-slug/x"}.derivedShowSlug(), "x");
    EXPECT_EQ(Series{.deeplinkHref = "/show/"}.derivedShowSlug(), "");
}

TEST(Series, HasNoSlugIfTheDeeplinkIsTooShort) {
    for (const char* const href : {"show/some-slug", "some-slug", "/some-slug", ""}) {
        EXPECT_EQ(Series{.deeplinkHref = href}.derivedShowSlug(), std::nullopt) << href;
    }
    EXPECT_EQ(Series{}.derivedShowSlug(), std::nullopt);
}

TEST(Series, ReadsTheSlugOnlyFromTheDeeplink) {
    const Series other{.selfHref = "/show/a/b", .showHref = "/show/c/d"};
    EXPECT_EQ(other.derivedShowSlug(), std::nullopt);
}

TEST(Series, ComparesAllItsFields) {
    const Series one{.seriesId = "1", .title = "t", .extras = {Video{.videoId = "v"}}};
    Series other = one;
    EXPECT_EQ(one, other);
    other.extras[0].title = "another";
    EXPECT_NE(one, other);
    EXPECT_EQ(one.extras[0].title, std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
