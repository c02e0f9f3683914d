#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/DecodingError.h>

#include <platform/json/FieldRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;

const std::string goodSeries = R"({"id":"s","_links":{}})";
const std::string goodVideo = R"({"id":"v","_links":{}})";
const Show least{.theme = Theme::default_};

Show show(const std::string& members) {
    const auto show = decoded<Show>("{" + members + "}");
    EXPECT_TRUE(show) << members;
    return show.value_or(Show{});
}

/// The text of the error that `json` fails with.
std::string messageOf(const std::string& json) {
    std::optional<Error> error;
    EXPECT_FALSE(decoded<Show>(json, &error)) << json;
    return error ? error->localizedDescription() : "";
}

TEST(Show, NeedsNothing) {
    const Show empty = show("");
    EXPECT_EQ(empty, least);
    EXPECT_EQ(empty.showId, std::nullopt);
    EXPECT_FALSE(empty.captionsAvailable);
    EXPECT_EQ(empty.theme, Theme::default_);
    EXPECT_TRUE(empty.socialLinks.empty() && empty.relatedLinks.empty() && empty.participants.empty());
    EXPECT_TRUE(empty.tags.empty() && empty.categoryLinks.empty() && empty.seriesList.empty() &&
                empty.videoExtras.empty());
}

TEST(Show, IsAnObject) { test::expectAnObjectOnly(test::decodable<Show>); }

TEST(Show, IsKnownByItsEntityWhateverTheCase) {
    for (const char* const entity : {"show", "SHOW", "Show", "sHoW", "s\\u0068ow"}) {
        EXPECT_EQ(show(R"("_entity":")" + std::string(entity) + "\""), least) << entity;
    }
}

TEST(Show, FailsAsAnotherEntityWithItsNameAsItCame) {
    EXPECT_EQ(messageOf(R"({"_entity":"video"})"), R"(Show expects a "show" entity type, but found "video")");
    EXPECT_EQ(messageOf(R"({"_entity":"Video"})"), R"(Show expects a "show" entity type, but found "Video")");
    EXPECT_EQ(messageOf(R"({"_entity":""})"), R"(Show expects a "show" entity type, but found "")");
    for (const char* const entity :
         {"shows", " show", "show ", "sho", "show\\u0000", "\\u017fhow", "series"}) {
        EXPECT_NE(messageOf(R"({"_entity":")" + std::string(entity) + "\"}"), "") << entity;
    }
}

TEST(Show, FailsAsAnotherEntityWithItsOwnErrorAndNotAVideos) {
    std::optional<Error> error;
    EXPECT_FALSE(decoded<Show>(R"({"_entity":"Video"})", &error));
    ASSERT_TRUE(error);
    const auto* const mismatch = error->as<Show::DecodingError>();
    ASSERT_NE(mismatch, nullptr);
    EXPECT_EQ(mismatch->found(), "Video");
    EXPECT_EQ(mismatch->localizedDescription(), R"(Show expects a "show" entity type, but found "Video")");
    EXPECT_EQ(*mismatch, Show::DecodingError::entityMismatch("other"));
    EXPECT_EQ(error->as<Video::DecodingError>(), nullptr);
    EXPECT_EQ(error->as<DecodingError>(), nullptr);
}

TEST(Show, TakesAnEntityThatIsNoTextForNone) {
    for (const char* const entity : {"5", "null", "true", "{}", "[]", "[\"video\"]", "\"\\ud800\""}) {
        EXPECT_EQ(show(R"("_entity":)" + std::string(entity)), least) << entity;
    }
}

TEST(Show, FailsAsAnotherEntityWhateverElseItHolds) {
    const std::string mismatch = R"(Show expects a "show" entity type, but found "video")";
    EXPECT_EQ(failureOf<Show>(
                  R"({"id":"x","title":1,"_links":[],"_embedded":{"seriesList":[{}]},"_entity":"video"})"),
              mismatch);
    EXPECT_EQ(failureOf<Show>(R"({"_entity":"video","\ud800":1})"), "dataCorrupted []");
    // The first of two entities counts.
    EXPECT_EQ(failureOf<Show>(R"({"_entity":"video","_entity":"show"})"), mismatch);
    EXPECT_EQ(failureOf<Show>(R"({"_entity":"show","_entity":"video"})"), "");
}

TEST(Show, HasAnIdThatIsANumberWhereItsSeriesHasAText) {
    EXPECT_EQ(show(R"("id":"12")"), least);
    EXPECT_EQ(show(R"("id":12)").showId, 12U);
    const Show both = show(R"("id":12,"_embedded":{"selectedSeries":{"id":"12","_links":{}}})");
    EXPECT_EQ(both.showId, 12U);
    ASSERT_TRUE(both.selectedSeries);
    EXPECT_EQ(both.selectedSeries->seriesId, "12");
    EXPECT_EQ(show(R"("_embedded":{"selectedSeries":{"id":12,"_links":{}}})").selectedSeries, std::nullopt);
}

TEST(Show, HasEachSubtypeByItsRawTextAndNoneOfAnUnknownOne) {
    EXPECT_EQ(show(R"("type":"livestream")").subtype, LumenoSubtype::livestream);
    EXPECT_EQ(show(R"("type":"episode")").subtype, LumenoSubtype::episode);
    EXPECT_EQ(show(R"("type":"series")").subtype, LumenoSubtype::series);
    EXPECT_EQ(show(R"("type":"feature")").subtype, LumenoSubtype::feature);
    EXPECT_EQ(show(R"("type":"trailer")").subtype, LumenoSubtype::trailer);
    EXPECT_EQ(show(R"("type":"podcast")"), least);
    EXPECT_EQ(show(R"("type":"Series")"), least);
}

TEST(Show, HasTheDefaultThemeWhereItsOwnIsNotKnown) {
    EXPECT_EQ(show(R"("theme":"light")").theme, Theme::light);
    for (const char* const theme :
         {"\"dark\"", "\"Light\"", "\"default\"", "\"\"", "5", "null", "{}", "[\"light\"]"}) {
        EXPECT_EQ(show(R"("theme":)" + std::string(theme)).theme, Theme::default_) << theme;
    }
}

TEST(Show, HasNoDateFromAnotherForm) {
    EXPECT_EQ(show(R"("updated":"2020-01-02T03:04:05Z")"), least);
    EXPECT_EQ(show(R"("updated":"2020-01-02 03:04:05.5")"), least);
    EXPECT_EQ(show(R"("updated":1577934245)"), least);
}

TEST(Show, WasUpdatedAtAnotherInstantOnADeviceInAnotherZone) {
    const std::string updated = R"("updated":"2020-01-02 03:04:05")";
    const auto seconds = [&](const char* zone) {
        const test::TemporaryZone device(zone);
        const Show dated = show(updated);
        EXPECT_TRUE(dated.updated) << zone;
        return dated.updated.value_or(Date()).time_since_epoch().count();
    };
    EXPECT_EQ(seconds("UTC0"), 1577934245);
    EXPECT_EQ(seconds("EST-10"), 1577934245 - 36000);
    EXPECT_EQ(seconds("WEST5"), 1577934245 + 18000);
}

TEST(Show, HasNoSocialLinksWhereTheyAreAList) {
    EXPECT_EQ(show(R"("socialLinks":[{"href":"a"}])"), least);
    EXPECT_EQ(show(R"("socialLinks":{"title":"t","items":[{"href":"a"}]})"),
              (Show{.theme = Theme::default_, .socialLinksTitle = "t", .socialLinks = {{.href = "a"}}}));
}

TEST(Show, HasNoRelatedLinksWhereTheyAreAnObject) {
    EXPECT_EQ(show(R"("relatedLinks":{"items":[{"href":"a"}]})"), least);
    EXPECT_EQ(show(R"("relatedLinks":[{"href":"a"}])").relatedLinks, std::vector<Link>{{.href = "a"}});
}

TEST(Show, DoesWithoutLinks) {
    for (const char* const links : {"null", "[]", "7", "{}"})
        EXPECT_EQ(show(R"("_links":)" + std::string(links)), least);
    EXPECT_EQ(show(R"("title":"t")"), (Show{.title = "t", .theme = Theme::default_}));
}

TEST(Show, LosesAllCategoriesForOneBadLinkAndKeepsTheHrefsBesideThem) {
    EXPECT_EQ(
        show(
            R"("_links":{"self":{"href":"s"},"categories":[{"href":"a"},{"id":"b"}],"deeplink":{"href":"d"}})"),
        (Show{.theme = Theme::default_, .selfHref = "s", .deeplinkHref = "d"}));
}

TEST(Show, LosesAllSeriesForOneWithoutLinksAndKeepsWhatIsEmbeddedBesideThem) {
    const Show embedded =
        show("\"_embedded\":{\"seriesList\":[" + goodSeries + R"(,{"id":"x"}],"selectedSeries":)" +
             goodSeries + ",\"highlightVideo\":" + goodVideo + ",\"videoExtras\":[" + goodVideo + "]}");
    EXPECT_EQ(embedded.seriesList, std::vector<Series>());
    EXPECT_EQ(embedded.selectedSeries, Series{.seriesId = "s"});
    ASSERT_TRUE(embedded.highlightVideo);
    EXPECT_EQ(embedded.highlightVideo->videoId, "v");
    ASSERT_EQ(embedded.videoExtras.size(), 1U);
}

TEST(Show, LosesAllExtrasForOneOfAnotherEntityAndKeepsItsSeries) {
    const Show embedded = show("\"_embedded\":{\"seriesList\":[" + goodSeries + "],\"videoExtras\":[" +
                               goodVideo + R"(,{"_entity":"show","_links":{}}]})");
    EXPECT_EQ(embedded.videoExtras, std::vector<Video>());
    EXPECT_EQ(embedded.seriesList, std::vector<Series>{{.seriesId = "s"}});
}

TEST(Show, TakesWhatIsEmbeddedInItsOneShapeOnly) {
    EXPECT_EQ(show("\"_embedded\":{\"selectedSeries\":[" + goodSeries + "],\"highlightVideo\":[" + goodVideo +
                   "]}"),
              least);
    EXPECT_EQ(show("\"_embedded\":{\"seriesList\":" + goodSeries + ",\"videoExtras\":" + goodVideo + "}"),
              least);
    EXPECT_EQ(show("\"_embedded\":{\"seriesList\":{\"items\":[" + goodSeries + "]}}"), least);
}

TEST(Show, FillsNeitherTheSelectedSeriesNorTheListFromTheOther) {
    const Show list = show("\"_embedded\":{\"seriesList\":[" + goodSeries + "]}");
    EXPECT_EQ(list.selectedSeries, std::nullopt);
    EXPECT_EQ(list.seriesList.size(), 1U);
    const Show selected = show("\"_embedded\":{\"selectedSeries\":" + goodSeries +
                               R"(,"seriesList":[{"id":"z","_links":{}}]})");
    EXPECT_EQ(selected.selectedSeries, Series{.seriesId = "s"});
    EXPECT_EQ(selected.seriesList, std::vector<Series>{{.seriesId = "z"}});
}

TEST(Show, FillsNeitherOfItsHighlightsFromTheOther) {
    const Show embedded = show("\"_embedded\":{\"highlightVideo\":" + goodVideo + "}");
    ASSERT_TRUE(embedded.highlightVideo);
    EXPECT_EQ(embedded.playableVideo, std::nullopt);
    const Show linked = show(R"("_links":{"self":{"href":"s"},"highlightVideo":{"id":"a","playTitle":"p"}})");
    EXPECT_EQ(linked.highlightVideo, std::nullopt);
    EXPECT_EQ(linked.playableVideo, (DirectPlayableVideo{.id = "a", .playTitle = "p"}));
}

TEST(Show, MayBeBlockedWithATitleAlone) {
    EXPECT_EQ(show(R"("data":{"blockout":{"title":"t"}})"),
              (Show{.theme = Theme::default_, .blockedTitle = "t"}));
    EXPECT_EQ(show(R"("data":{"blockout":{"message":"m","title":1}})"),
              (Show{.theme = Theme::default_, .blockedMessage = "m"}));
}

TEST(Show, HasNoBadgeFromAStatusThatFails) {
    EXPECT_EQ(show(R"("status":{"title":"t"},"title":"x")"), (Show{.title = "x", .theme = Theme::default_}));
    EXPECT_EQ(show(R"("status":{"title":"t","theme":"odd"})").status, (Status{"t", StatusTheme::default_}));
}

TEST(Show, GivesItsTitleAndPathUnderTheNamesOfACollectionItem) {
    const Show both{.title = "t", .displayTitle = "d", .selfHref = "s", .deeplinkHref = "l"};
    EXPECT_EQ(both.showTitle(), "t");
    EXPECT_EQ(both.showHref(), "s");
    const Show neither{.displayTitle = "d", .deeplinkHref = "l"};
    EXPECT_EQ(neither.showTitle(), std::nullopt);
    EXPECT_EQ(neither.showHref(), std::nullopt);
}

TEST(Show, PrefersItsSlugToTheOneInItsSelfLink) {
    EXPECT_EQ((Show{.slug = "own", .selfHref = "/show/linked"}).derivedShowSlug(), "own");
    EXPECT_EQ(Show{.selfHref = "/show/linked/x"}.derivedShowSlug(), "linked");
    EXPECT_EQ(Show{.selfHref = "show/linked/x"}.derivedShowSlug(), "x");
}

TEST(Show, PrefersAnEmptySlugToTheOneInItsSelfLink) {
    EXPECT_EQ((Show{.slug = "", .selfHref = "/show/linked"}).derivedShowSlug(), "");
    EXPECT_EQ(show(R"("slug":"","_links":{"self":{"href":"/show/linked"}})").derivedShowSlug(), "");
}

TEST(Show, HasNoSlugFromASelfLinkOfTooFewParts) {
    for (const char* const href : {"show/slug", "slug", "/slug", ""}) {
        EXPECT_EQ(Show{.selfHref = href}.derivedShowSlug(), std::nullopt) << href;
    }
    EXPECT_EQ(Show{}.derivedShowSlug(), std::nullopt);
    EXPECT_EQ(Show{.deeplinkHref = "/show/deep"}.derivedShowSlug(), std::nullopt);
}

TEST(Show, MadeByItsFieldsIsCheckedForNothing) {
    const Show made{.showId = 7, .theme = std::nullopt, .selfHref = "not a path"};
    EXPECT_EQ(made.theme, std::nullopt);
    EXPECT_NE(made, least);
}

TEST(ShowsByThemselves, FailWithThePathOfTheOneThatFails) {
    EXPECT_EQ(decoded<std::vector<Show>>("[{},{}]"), (std::vector<Show>{least, least}));
    EXPECT_EQ(failureOf<std::vector<Show>>("[{},7]"), "typeMismatch [1]");
    EXPECT_EQ(failureOf<std::vector<Show>>("{}"), "typeMismatch []");
    const test::Outcome outcome =
        test::outcomeOf(test::decodable<std::vector<Show>>, R"([{},{"_entity":"Series"}])");
    EXPECT_EQ(outcome.failure, R"(Show expects a "show" entity type, but found "Series")");
    EXPECT_EQ(outcome.path, "[1]");
}

}  // namespace
}  // namespace VanticRestKit
