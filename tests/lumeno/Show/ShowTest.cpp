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
const Show minimal{.theme = Theme::default_};

Show show(const std::string& members) {
    const auto show = decoded<Show>("{" + members + "}");
    EXPECT_TRUE(show) << members;
    return show.value_or(Show{});
}

/// The description of the error with which `json` fails.
std::string messageOf(const std::string& json) {
    std::optional<Error> error;
    EXPECT_FALSE(decoded<Show>(json, &error)) << json;
    return error ? error->localizedDescription() : "";
}

TEST(Show, NeedsNothing) {
    const Show empty = show("");
    EXPECT_EQ(empty, minimal);
    EXPECT_EQ(empty.showId, std::nullopt);
    EXPECT_FALSE(empty.captionsAvailable);
    EXPECT_EQ(empty.theme, Theme::default_);
    EXPECT_TRUE(empty.socialLinks.empty() && empty.relatedLinks.empty() && empty.participants.empty());
    EXPECT_TRUE(empty.tags.empty() && empty.categoryLinks.empty() && empty.seriesList.empty() &&
                empty.videoExtras.empty());
}

TEST(Show, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Show>); }

TEST(Show, RecognisesItsEntityInAnyCase) {
    for (const char* const entity : {"show", "SHOW", "Show", "sHoW", "s\\u0068ow"}) {
        EXPECT_EQ(show(R"("_entity":")" + std::string(entity) + "\""), minimal) << entity;
    }
}

TEST(Show, FailsForAnotherEntityWithItsNameUnchanged) {
    EXPECT_EQ(messageOf(R"({"_entity":"video"})"), R"(Show expects a "show" entity type, but found "video")");
    EXPECT_EQ(messageOf(R"({"_entity":"Video"})"), R"(Show expects a "show" entity type, but found "Video")");
    EXPECT_EQ(messageOf(R"({"_entity":""})"), R"(Show expects a "show" entity type, but found "")");
    for (const char* const entity :
         {"shows", " show", "show ", "sho", "show\\u0000", "\\u017fhow", "series"}) {
        EXPECT_NE(messageOf(R"({"_entity":")" + std::string(entity) + "\"}"), "") << entity;
    }
}

TEST(Show, FailsForAnotherEntityWithAShowsErrorType) {
    std::optional<Error> error;
    EXPECT_FALSE(decoded<Show>(R"({"_entity":"Video"})", &error));
    ASSERT_TRUE(error);
    const auto* const mismatch = error->as<Show::DecodingError>();
    ASSERT_NE(mismatch, nullptr);
    EXPECT_EQ(mismatch->found(), "Video");
    EXPECT_EQ(error->domain(), "VanticRestKit.Show.DecodingError");
    EXPECT_EQ(error->code(), 0);
    EXPECT_EQ(mismatch->localizedDescription(), R"(Show expects a "show" entity type, but found "Video")");
    EXPECT_EQ(*mismatch, Show::DecodingError::entityMismatch("other"));
    EXPECT_EQ(error->as<Video::DecodingError>(), nullptr);
    EXPECT_EQ(error->as<DecodingError>(), nullptr);
}

TEST(Show, IgnoresAnEntityThatIsNotAString) {
    for (const char* const entity : {"5", "null", "true", "{}", "[]", "[\"video\"]", "\"\\ud800\""}) {
        EXPECT_EQ(show(R"("_entity":)" + std::string(entity)), minimal) << entity;
    }
}

TEST(Show, FailsForAnotherEntityWhateverElseItContains) {
    const std::string mismatch = R"(Show expects a "show" entity type, but found "video")";
    EXPECT_EQ(failureOf<Show>(
                  R"({"id":"x","title":1,"_links":[],"_embedded":{"seriesList":[{}]},"_entity":"video"})"),
              mismatch);
    EXPECT_EQ(failureOf<Show>(R"({"_entity":"video","\ud800":1})"), "dataCorrupted []");
    // The first of two entities is used.
    EXPECT_EQ(failureOf<Show>(R"({"_entity":"video","_entity":"show"})"), mismatch);
    EXPECT_EQ(failureOf<Show>(R"({"_entity":"show","_entity":"video"})"), "");
}

TEST(Show, HasANumericIdUnlikeItsSeries) {
    EXPECT_EQ(show(R"("id":"12")"), minimal);
    EXPECT_EQ(show(R"("id":12)").showId, 12U);
    const Show both = show(R"("id":12,"_embedded":{"selectedSeries":{"id":"12","_links":{}}})");
    EXPECT_EQ(both.showId, 12U);
    ASSERT_TRUE(both.selectedSeries);
    EXPECT_EQ(both.selectedSeries->seriesId, "12");
    EXPECT_EQ(show(R"("_embedded":{"selectedSeries":{"id":12,"_links":{}}})").selectedSeries, std::nullopt);
}

TEST(Show, ReadsEachSubtypeByItsRawValueAndNoneForAnUnknownOne) {
    EXPECT_EQ(show(R"("type":"livestream")").subtype, LumenoSubtype::livestream);
    EXPECT_EQ(show(R"("type":"episode")").subtype, LumenoSubtype::episode);
    EXPECT_EQ(show(R"("type":"series")").subtype, LumenoSubtype::series);
    EXPECT_EQ(show(R"("type":"feature")").subtype, LumenoSubtype::feature);
    EXPECT_EQ(show(R"("type":"trailer")").subtype, LumenoSubtype::trailer);
    EXPECT_EQ(show(R"("type":"podcast")"), minimal);
    EXPECT_EQ(show(R"("type":"Series")"), minimal);
}

TEST(Show, HasTheDefaultThemeForAnUnknownOne) {
    EXPECT_EQ(show(R"("theme":"light")").theme, Theme::light);
    for (const char* const theme :
         {"\"dark\"", "\"Light\"", "\"default\"", "\"\"", "5", "null", "{}", "[\"light\"]"}) {
        EXPECT_EQ(show(R"("theme":)" + std::string(theme)).theme, Theme::default_) << theme;
    }
}

TEST(Show, DoesNotReadADateInAnotherFormat) {
    EXPECT_EQ(show(R"("updated":"2020-01-02T03:04:05Z")"), minimal);
    EXPECT_EQ(show(R"("updated":"2020-01-02 03:04:05.5")"), minimal);
    EXPECT_EQ(show(R"("updated":1577934245)"), minimal);
}

TEST(Show, ReadsItsDatesInTheZoneOfTheDevice) {
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

TEST(Show, HasNoSocialLinksIfTheyAreAList) {
    EXPECT_EQ(show(R"("socialLinks":[{"href":"a"}])"), minimal);
    EXPECT_EQ(show(R"("socialLinks":{"title":"t","items":[{"href":"a"}]})"),
              (Show{.theme = Theme::default_, .socialLinksTitle = "t", .socialLinks = {{.href = "a"}}}));
}

TEST(Show, HasNoRelatedLinksIfTheyAreAnObject) {
    EXPECT_EQ(show(R"("relatedLinks":{"items":[{"href":"a"}]})"), minimal);
    EXPECT_EQ(show(R"("relatedLinks":[{"href":"a"}])").relatedLinks, std::vector<Link>{{.href = "a"}});
}

TEST(Show, DoesNotNeedLinks) {
    for (const char* const links : {"null", "[]", "7", "{}"})
        EXPECT_EQ(show(R"("_links":)" + std::string(links)), minimal);
    EXPECT_EQ(show(R"("title":"t")"), (Show{.title = "t", .theme = Theme::default_}));
}

TEST(Show, LosesAllCategoriesForOneFaultyLinkAndKeepsTheOtherHrefs) {
    EXPECT_EQ(
        show(
            R"("_links":{"self":{"href":"s"},"categories":[{"href":"a"},{"id":"b"}],"deeplink":{"href":"d"}})"),
        (Show{.theme = Theme::default_, .selfHref = "s", .deeplinkHref = "d"}));
}

TEST(Show, LosesAllSeriesForOneWithoutLinksAndKeepsTheOtherEmbeddedValues) {
    const Show embedded =
        show("\"_embedded\":{\"seriesList\":[" + goodSeries + R"(,{"id":"x"}],"selectedSeries":)" +
             goodSeries + ",\"highlightVideo\":" + goodVideo + ",\"videoExtras\":[" + goodVideo + "]}");
    EXPECT_EQ(embedded.seriesList, std::vector<Series>());
    EXPECT_EQ(embedded.selectedSeries, Series{.seriesId = "s"});
    ASSERT_TRUE(embedded.highlightVideo);
    EXPECT_EQ(embedded.highlightVideo->videoId, "v");
    ASSERT_EQ(embedded.videoExtras.size(), 1U);
}

TEST(Show, LosesAllExtrasForOneOtherEntityAndKeepsItsSeries) {
    const Show embedded = show("\"_embedded\":{\"seriesList\":[" + goodSeries + "],\"videoExtras\":[" +
                               goodVideo + R"(,{"_entity":"show","_links":{}}]})");
    EXPECT_EQ(embedded.videoExtras, std::vector<Video>());
    EXPECT_EQ(embedded.seriesList, std::vector<Series>{{.seriesId = "s"}});
}

TEST(Show, ReadsEmbeddedValuesOnlyInTheirExactForm) {
    EXPECT_EQ(show("\"_embedded\":{\"selectedSeries\":[" + goodSeries + "],\"highlightVideo\":[" + goodVideo +
                   "]}"),
              minimal);
    EXPECT_EQ(show("\"_embedded\":{\"seriesList\":" + goodSeries + ",\"videoExtras\":" + goodVideo + "}"),
              minimal);
    EXPECT_EQ(show("\"_embedded\":{\"seriesList\":{\"items\":[" + goodSeries + "]}}"), minimal);
}

TEST(Show, DoesNotFillTheSelectedSeriesOrTheListFromTheOther) {
    const Show list = show("\"_embedded\":{\"seriesList\":[" + goodSeries + "]}");
    EXPECT_EQ(list.selectedSeries, std::nullopt);
    EXPECT_EQ(list.seriesList.size(), 1U);
    const Show selected = show("\"_embedded\":{\"selectedSeries\":" + goodSeries +
                               R"(,"seriesList":[{"id":"z","_links":{}}]})");
    EXPECT_EQ(selected.selectedSeries, Series{.seriesId = "s"});
    EXPECT_EQ(selected.seriesList, std::vector<Series>{{.seriesId = "z"}});
}

TEST(Show, DoesNotFillOneHighlightFromTheOther) {
    const Show embedded = show("\"_embedded\":{\"highlightVideo\":" + goodVideo + "}");
    ASSERT_TRUE(embedded.highlightVideo);
    EXPECT_EQ(embedded.playableVideo, std::nullopt);
    const Show linked = show(R"("_links":{"self":{"href":"s"},"highlightVideo":{"id":"a","playTitle":"p"}})");
    EXPECT_EQ(linked.highlightVideo, std::nullopt);
    EXPECT_EQ(linked.playableVideo, (DirectPlayableVideo{.id = "a", .playTitle = "p"}));
}

TEST(Show, CanBeBlockedWithOnlyATitle) {
    EXPECT_EQ(show(R"("data":{"blockout":{"title":"t"}})"),
              (Show{.theme = Theme::default_, .blockedTitle = "t"}));
    EXPECT_EQ(show(R"("data":{"blockout":{"message":"m","title":1}})"),
              (Show{.theme = Theme::default_, .blockedMessage = "m"}));
}

TEST(Show, HasNoBadgeIfTheStatusIsFaulty) {
    EXPECT_EQ(show(R"("status":{"title":"t"},"title":"x")"), (Show{.title = "x", .theme = Theme::default_}));
    EXPECT_EQ(show(R"("status":{"title":"t","theme":"odd"})").status, (Status{"t", StatusTheme::default_}));
}

TEST(Show, HasItsTitleAndPathAsCollectionItemMembers) {
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

TEST(Show, HasNoSlugIfTheSelfLinkIsTooShort) {
    for (const char* const href : {"show/slug", "slug", "/slug", ""}) {
        EXPECT_EQ(Show{.selfHref = href}.derivedShowSlug(), std::nullopt) << href;
    }
    EXPECT_EQ(Show{}.derivedShowSlug(), std::nullopt);
    EXPECT_EQ(Show{.deeplinkHref = "/show/deep"}.derivedShowSlug(), std::nullopt);
}

TEST(Show, InitializedByFieldsIsNotValidated) {
    const Show made{.showId = 7, .theme = std::nullopt, .selfHref = "not a path"};
    EXPECT_EQ(made.theme, std::nullopt);
    EXPECT_NE(made, minimal);
}

TEST(ShowsByThemselves, FailWithThePathOfTheFaultyElement) {
    EXPECT_EQ(decoded<std::vector<Show>>("[{},{}]"), (std::vector<Show>{minimal, minimal}));
    EXPECT_EQ(failureOf<std::vector<Show>>("[{},7]"), "typeMismatch [1]");
    EXPECT_EQ(failureOf<std::vector<Show>>("{}"), "typeMismatch []");
    const test::Outcome outcome =
        test::outcomeOf(test::decodable<std::vector<Show>>, R"([{},{"_entity":"Series"}])");
    EXPECT_EQ(outcome.failure, R"(Show expects a "show" entity type, but found "Series")");
    EXPECT_EQ(outcome.path, "[1]");
}

}  // namespace
}  // namespace VanticRestKit
