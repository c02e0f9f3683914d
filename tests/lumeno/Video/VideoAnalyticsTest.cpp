#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Video/Video.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;
using Analytics = VideoAnalytics;

test::FieldRule text(const char* name, const char* path) {
    return {name, path, Strictness::lenient, test::text()};
}

test::EntityRules analytics() {
    return {
        .type = test::decodable<Analytics>,
        .minimal = "{}",
        .fields = {text("oztamPublisherId", "oztam.publisherId"),
                   text("oztamMediaId", "oztam.mediaId"),
                   text("oztamClassification", "oztam.classification"),
                   text("oztamSeriesName", "oztam.seriesName"),
                   text("oztamSeriesId", "oztam.seriesId"),
                   text("oztamEpisodeName", "oztam.episodeName"),
                   text("oztamEpisodeId", "oztam.episodeId"),
                   text("oztamChannel", "oztam.channel"),
                   text("oztamUrl", "oztam.url"),
                   {"oztamMediaDuration", "oztam.mediaDuration", Strictness::lenient, test::unsignedNumber()},
                   text("oztamMediaType", "oztam.mediaType"),
                   text("dataLayerId", "dataLayer.d_id"),
                   text("dataLayerContentType", "dataLayer.d_contentType"),
                   text("dataLayerContentSource", "dataLayer.d_contentSource"),
                   text("dataLayerUri", "dataLayer.d_uri"),
                   text("dataLayerProgramName", "dataLayer.d_program_name"),
                   text("dataLayerProgramId", "dataLayer.d_program_id"),
                   text("dataLayerdSeriesName", "dataLayer.d_series_name"),
                   text("dataLayerSeriesId", "dataLayer.d_series_id"),
                   text("dataLayerEpisodeName", "dataLayer.d_episode_name"),
                   text("dataLayerEpisodeId", "dataLayer.d_episode_id"),
                   text("dataLayerLanguage", "dataLayer.d_language"),
                   text("dataLayerCanonicalUrl", "dataLayer.d_canonicalUrl"),
                   text("dataLayerCategories", "dataLayer.d_categories"),
                   text("dataLayerClassification", "dataLayer.d_classification"),
                   text("dataLayerMediaDuration", "dataLayer.d_mediaDuration"),
                   text("dataLayerCaptionAvailable", "dataLayer.d_captionsAvailable"),
                   text("dataLayerStreamType", "dataLayer.d_streamType"),
                   text("dataLayerVideoType", "dataLayer.d_videoType"),
                   text("dataLayerTitleTitle", "dataLayer.d_title_title")},
        .containers = {{"oztam", Strictness::lenient}, {"dataLayer", Strictness::lenient}}};
}

TEST(VideoAnalytics, HasThirtyFields) {
    ASSERT_EQ(analytics().fields.size(), 30U);
    test::expectDeclaredFields(analytics());
}

TEST(VideoAnalytics, ReadsEachFieldFromItsKeyOrLeavesItEmpty) { test::expectFieldsInEveryState(analytics()); }

TEST(VideoAnalytics, IsEmptyWithoutItsObjects) { test::expectContainersInEveryState(analytics()); }

TEST(VideoAnalytics, FailsOnlyIfItIsNotAnObject) { test::expectAnObjectOnly(test::decodable<Analytics>); }

TEST(VideoAnalytics, IsEmptyForEmptyOrInvalidObjects) {
    EXPECT_EQ(decoded<Analytics>("{}"), Analytics{});
    EXPECT_EQ(decoded<Analytics>(R"({"oztam":1,"dataLayer":[]})"), Analytics{});
}

TEST(VideoAnalytics, HasANumericDurationAndOneAsAString) {
    EXPECT_EQ(decoded<Analytics>(R"({"oztam":{"mediaDuration":120},"dataLayer":{"d_mediaDuration":"120"}})"),
              (Analytics{.oztamMediaDuration = 120U, .dataLayerMediaDuration = "120"}));
    EXPECT_EQ(decoded<Analytics>(R"({"oztam":{"mediaDuration":"120"},"dataLayer":{"d_mediaDuration":120}})"),
              Analytics{});
}

TEST(VideoAnalytics, DoesNotReadADurationFromANegativeNumberOrAFraction) {
    EXPECT_EQ(decoded<Analytics>(R"({"oztam":{"mediaDuration":-1}})"), Analytics{});
    EXPECT_EQ(decoded<Analytics>(R"({"oztam":{"mediaDuration":1.5}})"), Analytics{});
}

TEST(VideoAnalytics, HasStringsForFieldsThatLookLikeFlags) {
    EXPECT_EQ(decoded<Analytics>(R"({"dataLayer":{"d_captionsAvailable":true}})"), Analytics{});
    EXPECT_EQ(decoded<Analytics>(R"({"dataLayer":{"d_captionsAvailable":"true"}})"),
              Analytics{.dataLayerCaptionAvailable = "true"});
}

TEST(VideoAnalytics, HasOneStringForItsCategories) {
    EXPECT_EQ(decoded<Analytics>(R"({"dataLayer":{"d_categories":["a","b"]}})"), Analytics{});
    EXPECT_EQ(decoded<Analytics>(R"({"dataLayer":{"d_categories":"a,b"}})"),
              Analytics{.dataLayerCategories = "a,b"});
}

TEST(VideoAnalytics, KeepsTheFieldsNextToAFaultyKey) {
    EXPECT_EQ(decoded<Analytics>(R"({"oztam":{"publisherId":1,"mediaId":"m"}})"),
              Analytics{.oztamMediaId = "m"});
}

TEST(VideoAnalytics, OfAVideoIsAbsentOrPresentButEmpty) {
    EXPECT_EQ(decoded<Video>(R"({"_links":{},"analytics":"x"})")->analytics, std::nullopt);
    EXPECT_EQ(decoded<Video>(R"({"_links":{},"analytics":{}})")->analytics, Analytics{});
}

TEST(VideoAnalytics, CanBeInitializedInDeclaredOrder) {
    const Analytics made{.oztamPublisherId = "oztam.publisherId",
                         .oztamMediaId = "oztam.mediaId",
                         .oztamClassification = "oztam.classification",
                         .oztamSeriesName = "oztam.seriesName",
                         .oztamSeriesId = "oztam.seriesId",
                         .oztamEpisodeName = "oztam.episodeName",
                         .oztamEpisodeId = "oztam.episodeId",
                         .oztamChannel = "oztam.channel",
                         .oztamUrl = "oztam.url",
                         .oztamMediaDuration = 120,
                         .oztamMediaType = "oztam.mediaType",
                         .dataLayerId = "dataLayer.d_id",
                         .dataLayerContentType = "dataLayer.d_contentType",
                         .dataLayerContentSource = "dataLayer.d_contentSource",
                         .dataLayerUri = "dataLayer.d_uri",
                         .dataLayerProgramName = "dataLayer.d_program_name",
                         .dataLayerProgramId = "dataLayer.d_program_id",
                         .dataLayerdSeriesName = "dataLayer.d_series_name",
                         .dataLayerSeriesId = "dataLayer.d_series_id",
                         .dataLayerEpisodeName = "dataLayer.d_episode_name",
                         .dataLayerEpisodeId = "dataLayer.d_episode_id",
                         .dataLayerLanguage = "dataLayer.d_language",
                         .dataLayerCanonicalUrl = "dataLayer.d_canonicalUrl",
                         .dataLayerCategories = "dataLayer.d_categories",
                         .dataLayerClassification = "dataLayer.d_classification",
                         .dataLayerMediaDuration = "dataLayer.d_mediaDuration",
                         .dataLayerCaptionAvailable = "dataLayer.d_captionsAvailable",
                         .dataLayerStreamType = "dataLayer.d_streamType",
                         .dataLayerVideoType = "dataLayer.d_videoType",
                         .dataLayerTitleTitle = "dataLayer.d_title_title"};
    EXPECT_EQ(decoded<Analytics>(test::fullDocument(analytics())), made);
}

}  // namespace
}  // namespace VanticRestKit
