#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/DecodingError.h>

#include <platform/json/FieldRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;

/// A video with these members and links.
Video video(const std::string& members, const std::string& links = "{}") {
    const auto video =
        decoded<Video>("{" + members + (members.empty() ? "" : ",") + "\"_links\":" + links + "}");
    EXPECT_TRUE(video) << members;
    return video.value_or(Video{});
}

/// The description of the error with which `json` fails.
std::string messageOf(const std::string& json) {
    std::optional<Error> error;
    EXPECT_FALSE(decoded<Video>(json, &error));
    return error ? error->localizedDescription() : "";
}

TEST(Video, ListsItsDeeplinkIdAsItsOnlyIgnoredKey) {
    EXPECT_EQ(test::ignoredKeys(planOf<Video>()), std::vector<std::string>{"_links.deeplink.id"});
    EXPECT_EQ(video("", R"({"deeplink":{"id":"x"}})"), video("", R"({"deeplink":{}})"));
}

TEST(Video, NeedsOnlyLinks) {
    const Video empty = video("");
    EXPECT_EQ(empty, Video{.playableVideo = DirectPlayableVideo{}});
    EXPECT_FALSE(empty.captionsAvailable);
    EXPECT_FALSE(empty.captionsOnAkamai);
    EXPECT_FALSE(empty.playable);
    EXPECT_TRUE(empty.relatedLinks.empty() && empty.participants.empty() && empty.categoryLinks.empty());
    EXPECT_TRUE(empty.variationLinks.empty() && empty.tags.empty());
    EXPECT_EQ(empty.playlist, std::nullopt);
}

TEST(Video, FailsWithoutLinks) {
    EXPECT_EQ(failureOf<Video>("{}"), R"(keyNotFound ["_links"])");
    EXPECT_EQ(failureOf<Video>(R"({"_links":null})"), R"(valueNotFound ["_links"])");
    EXPECT_EQ(failureOf<Video>(R"({"_links":[]})"), R"(typeMismatch ["_links"])");
}

TEST(Video, MustBeAnObject) {
    for (const char* const json : {"[]", "null", "1", "\"x\"", "true"})
        EXPECT_EQ(failureOf<Video>(json), "typeMismatch []");
}

TEST(Video, RecognisesItsEntityInAnyCase) {
    for (const char* const entity : {"video", "VIDEO", "Video", "vIdEo", "v\\u0069deo"}) {
        EXPECT_EQ(video(R"("_entity":")" + std::string(entity) + "\"").playableVideo, DirectPlayableVideo{})
            << entity;
    }
}

TEST(Video, FailsForAnotherEntityWithItsNameUnchanged) {
    EXPECT_EQ(messageOf(R"({"_entity":"show","_links":{}})"),
              R"(Video expects a "video" entity type, but found "show")");
    EXPECT_EQ(messageOf(R"({"_entity":"Show","_links":{}})"),
              R"(Video expects a "video" entity type, but found "Show")");
    EXPECT_EQ(messageOf(R"({"_entity":"","_links":{}})"),
              R"(Video expects a "video" entity type, but found "")");
    EXPECT_EQ(messageOf(R"({"_entity":"vid\u00e9o","_links":{}})"),
              "Video expects a \"video\" entity type, but found \"vid\u00e9o\"");
    for (const char* const entity : {"videos", " video", "video ", "vide", "video\\u0000", "v\\u0131deo"}) {
        EXPECT_NE(messageOf(R"({"_links":{},"_entity":")" + std::string(entity) + "\"}"), "") << entity;
    }
}

TEST(Video, FailsForAnotherEntityWithItsOwnError) {
    std::optional<Error> error;
    EXPECT_FALSE(decoded<Video>(R"({"_entity":"Show","_links":{}})", &error));
    ASSERT_TRUE(error);
    const auto* const mismatch = error->as<Video::DecodingError>();
    ASSERT_NE(mismatch, nullptr);
    EXPECT_EQ(mismatch->found(), "Show");
    EXPECT_EQ(*mismatch, Video::DecodingError::entityMismatch("other"));
    EXPECT_EQ(error->as<DecodingError>(), nullptr);
}

TEST(Video, IgnoresAnEntityThatIsNotAString) {
    for (const char* const entity : {"5", "null", "true", "{}", "[]", "[\"show\"]", "\"\\ud800\""}) {
        EXPECT_EQ(failureOf<Video>(R"({"_entity":)" + std::string(entity) + R"(,"_links":{}})"), "")
            << entity;
    }
}

TEST(Video, ChecksItsEntityBeforeItsLinksWhateverTheirOrder) {
    const std::string mismatch = R"(Video expects a "video" entity type, but found "show")";
    for (const char* const links :
         {"", "\"_links\":null,", "\"_links\":[],", "\"_links\":{\"\\ud800\":1},"}) {
        EXPECT_EQ(failureOf<Video>("{" + std::string(links) + "\"_entity\":\"show\"}"), mismatch) << links;
    }
    // The object is opened before either is read.
    EXPECT_EQ(failureOf<Video>(R"({"_entity":"show","\ud800":1})"), "dataCorrupted []");
    // The first of two entities is used.
    EXPECT_EQ(failureOf<Video>(R"({"_entity":"show","_entity":"video","_links":{}})"), mismatch);
    EXPECT_EQ(failureOf<Video>(R"({"_entity":"video","_entity":"show","_links":{}})"), "");
    EXPECT_EQ(failureOf<Video>(R"({"_entity":1,"_entity":"show","_links":{}})"), "");
}

TEST(Video, RequiresOnlyItsLinksOfAllItsObjects) {
    EXPECT_EQ(video(R"("thumbnails":[],"_embedded":[])"), Video{.playableVideo = DirectPlayableVideo{}});
}

TEST(Video, ReadsItsDatesInTheZoneOfTheDevice) {
    const test::TemporaryZone east("EST-10");
    const Video dated = video(R"("pubDate":"2020-01-02 03:04:05","expireDate":"2020-01-02 13:04:05")");
    EXPECT_EQ(dated.pubDate, Date(std::chrono::duration<double>(1577934245 - 36000)));
    EXPECT_EQ(dated.expireDate, Date(std::chrono::duration<double>(1577934245)));
}

TEST(Video, DoesNotReadADateInAnotherFormat) {
    EXPECT_EQ(video(R"("pubDate":"2020-01-02T03:04:05Z")").pubDate, std::nullopt);
    EXPECT_EQ(video(R"("pubDate":12)").pubDate, std::nullopt);
    EXPECT_EQ(video(R"("pubDate":"2020-01-02 03:04:05.5")").pubDate, std::nullopt);
}

TEST(Video, ReadsADurationOnlyFromAnUnsignedNumber) {
    EXPECT_EQ(video(R"("duration":120)").duration, 120U);
    EXPECT_EQ(video(R"("duration":"120")").duration, std::nullopt);
    EXPECT_EQ(video(R"("duration":-1)").duration, std::nullopt);
}

TEST(Video, ReadsCaptionsOnlyFromABoolean) {
    EXPECT_TRUE(video(R"("captions":true)").captionsAvailable);
    EXPECT_FALSE(video(R"("captions":"true")").captionsAvailable);
    EXPECT_FALSE(video(R"("captions":{})").captionsAvailable);
}

TEST(Video, ReadsEachSubtypeByItsRawValueAndNoneForAnUnknownOne) {
    EXPECT_EQ(video(R"("type":"livestream")").subtype, LumenoSubtype::livestream);
    EXPECT_EQ(video(R"("type":"episode")").subtype, LumenoSubtype::episode);
    EXPECT_EQ(video(R"("type":"series")").subtype, LumenoSubtype::series);
    EXPECT_EQ(video(R"("type":"feature")").subtype, LumenoSubtype::feature);
    EXPECT_EQ(video(R"("type":"trailer")").subtype, LumenoSubtype::trailer);
    EXPECT_EQ(video(R"("type":"nonsense")").subtype, std::nullopt);
    EXPECT_EQ(video(R"("type":"Episode")").subtype, std::nullopt);
}

TEST(Video, HasANumericShowIdAndAStringSeriesId) {
    const Video wrong = video("", R"({"show":{"id":"7","href":"s"},"series":{"id":7,"href":"r"}})");
    EXPECT_EQ(wrong.showId, std::nullopt);
    EXPECT_EQ(wrong.showHref, "s");
    EXPECT_EQ(wrong.seriesId, std::nullopt);
    EXPECT_EQ(wrong.seriesHref, "r");
    const Video right = video("", R"({"show":{"id":7},"series":{"id":"7"}})");
    EXPECT_EQ(right.showId, 7U);
    EXPECT_EQ(right.seriesId, "7");
}

TEST(Video, ReadsEachCuePointOnlyInItsOwnSpelling) {
    EXPECT_EQ(video(R"("nextVideoCuePoint":10,"doneCuepoint":10)"),
              Video{.playableVideo = DirectPlayableVideo{}});
    const Video right = video(R"("nextVideoCuepoint":10,"doneCuePoint":20)");
    EXPECT_EQ(right.nextVideoCuePoint, 10U);
    EXPECT_EQ(right.doneCuePoint, 20U);
}

TEST(Video, RefersToItselfWithTheTitleOfItsHighlight) {
    const Video highlighted = video(
        R"("id":"v")", R"({"self":{"href":"s"},"highlightVideo":{"id":"a","href":"b","playTitle":"c"}})");
    EXPECT_EQ(highlighted.playableVideo, (DirectPlayableVideo{.id = "v", .href = "s", .playTitle = "c"}));
    // The order of the keys does not matter.
    const auto turned = decoded<Video>(
        R"({"_links":{"highlightVideo":{"id":"a","href":"b","playTitle":"c"},"self":{"href":"s"}},"id":"v"})");
    ASSERT_TRUE(turned);
    EXPECT_EQ(turned->playableVideo, highlighted.playableVideo);
}

TEST(Video, RefersToItselfWithoutAHighlight) {
    EXPECT_EQ(video(R"("id":"v")").playableVideo, DirectPlayableVideo{.id = "v"});
    for (const char* const highlight :
         {"null", "1", "\"x\"", "[]", "{}", "{\"\\ud800\":1,\"playTitle\":\"c\"}"}) {
        EXPECT_EQ(video(R"("id":"v")", R"({"highlightVideo":)" + std::string(highlight) + "}").playableVideo,
                  DirectPlayableVideo{.id = "v"})
            << highlight;
    }
}

TEST(Video, DistinguishesAnEmptyPlaylistFromNone) {
    const std::string bad = R"({"type":"feature","streams":{"hls":{}}})";
    EXPECT_EQ(video(R"("_embedded":{"playlist":[]})").playlist, std::vector<PlaylistItem>());
    EXPECT_EQ(video(R"("_embedded":{"playlist":[)" + bad + "]}").playlist, std::nullopt);
    EXPECT_EQ(video(R"("_embedded":{})").playlist, std::nullopt);
    EXPECT_EQ(video("").playlist, std::nullopt);
}

TEST(Video, LosesItsPlaylistIfOneEntryIsFaulty) {
    const std::string good = R"({"type":"program","streams":{"hls":{}}})";
    EXPECT_EQ(video(R"("title":"t","_embedded":{"playlist":[)" + good + "," + good + "]}").playlist->size(),
              2U);
    const Video without =
        video(R"("title":"t","_embedded":{"playlist":[)" + good + R"(,{"type":"program","streams":{}}]})");
    EXPECT_EQ(without.playlist, std::nullopt);
    EXPECT_EQ(without.title, "t");
}

TEST(Video, LosesOnlyTheListWithAFaultyElement) {
    const Video links = video(R"("relatedLinks":[{"href":"a"},{"id":"b"}],"participants":[{"title":"t"}])");
    EXPECT_EQ(links.relatedLinks, std::vector<Link>());
    EXPECT_EQ(links.participants, std::vector<Participants>{{.title = "t"}});
    const Video people = video(R"("relatedLinks":[{"href":"a"}],"participants":[{"title":"t"},{"title":1}])");
    EXPECT_EQ(people.relatedLinks, std::vector<Link>{{.href = "a"}});
    EXPECT_EQ(people.participants, std::vector<Participants>());
}

TEST(Video, DoesNotReconcileContradictoryFields) {
    const Video odd = video(R"("playable":false,"playableMessage":"m","captions":true,"availability":"a")");
    EXPECT_FALSE(odd.playable);
    EXPECT_EQ(odd.playableMessage, "m");
    EXPECT_TRUE(odd.captionsAvailable);
    EXPECT_EQ(odd.expireDate, std::nullopt);
}

TEST(Video, FindsTheSlugOfItsShowInItsDeeplink) {
    EXPECT_EQ(Video{.deeplinkHref = "show/some-slug/x"}.derivedShowSlug(), "x");
    EXPECT_EQ(Video{.deeplinkHref = "/show/some-slug"}.derivedShowSlug(), "some-slug");
    EXPECT_EQ(Video{.deeplinkHref = "show/some-slug"}.derivedShowSlug(), std::nullopt);
    EXPECT_EQ(Video{.selfHref = "a/b/c"}.derivedShowSlug(), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
