// Tests the 53 fields of a video in every state.

#include <gtest/gtest.h>
#include <lumeno/Video/VideoRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::videos;

TEST(VideoFields, AreFiftyThree) {
    ASSERT_EQ(videos().fields.size(), 53U);
    test::expectDeclaredFields(videos());
}

TEST(VideoFields, AreReadFromTheirKeysOrLeftEmptyAndNeverFail) {
    const test::TemporaryZone utc("UTC0");
    test::expectFieldsInEveryState(videos());
}

TEST(VideoFields, AreEmptyWithoutTheirObjectAndOnlyTheLinksAreRequired) {
    const test::TemporaryZone utc("UTC0");
    test::expectContainersInEveryState(videos());
}

TEST(VideoFields, AreReadOnlyFromTheirOwnKeys) {
    // Keys similar to those of the fields, and keys in the wrong object.
    const std::string others =
        R"({"_links":{"playlist":[],"id":"x","href":"x","self":{"id":"x","title":"x"},"deeplink":{"id":"x","title":"x"},)"
        R"("show":{"title":"x","showId":1},"series":{"title":"x"},"nextEpisode":{"id":"x","subtitle":"x"},)"
        R"("relatedLinks":[{"href":"x"}],"Self":{"href":"x"}},"videoId":"x","subtype":"episode","captionsAvailable":true,)"
        R"("videoDescription":"x","nextVideoCuePoint":10,"doneCuepoint":10,"selfHref":"x","showId":1,"playlist":[],)"
        R"("portrait":"x","thumbnails":{"Portrait":"x","character3":"x","thumbnail":"x"},"categories":[{"href":"x"}],)"
        R"("_embedded":{"highlightVideo":{"playTitle":"x"},"categories":[{"href":"x"}],"show":{"id":1,"href":"x"}},)"
        R"("highlightVideo":{"playTitle":"x"},"Title":"x","TITLE":"x"})";
    EXPECT_EQ(decoded<Video>(others), Video{.playableVideo = DirectPlayableVideo{}});
}

TEST(VideoFields, InitializeAVideoInDeclaredOrder) {
    const test::TemporaryZone utc("UTC0");
    const Date date{std::chrono::duration<double>(1577934245)};
    const Streams streams{.hls = {.sd = "_embedded.playlist"}};
    const auto links = [](const char* path) {
        return std::vector<Link>{{.id = "i", .title = "t", .href = path, .tags = {"a"}}, {.href = ""}};
    };
    const Video video{
        .videoId = "id",
        .thumbnail = "thumbnail",
        .portraitThumbnail = "thumbnails.portrait",
        .portraitTitledThumbnail = "thumbnails.portraitTitled",
        .character1Thumbnail = "thumbnails.character1",
        .character2Thumbnail = "thumbnails.character2",
        .episodePortraitThumbnail = "thumbnails.episodePortrait",
        .pubDate = date,
        .expireDate = date,
        .channel = "channel",
        .channelTitle = "channelTitle",
        .subtype = LumenoSubtype::episode,
        .title = "title",
        .kickerTitle = "kickerTitle",
        .showTitle = "showTitle",
        .seriesTitle = "seriesTitle",
        .highlightTitle = "highlightTitle",
        .displayTitle = "displayTitle",
        .displaySubtitle = "displaySubtitle",
        .format = "format",
        .duration = 120,
        .displayDuration = "displayDuration",
        .displayDurationAccessible = "displayDurationAccessible",
        .status = Status{.title = "status", .theme = StatusTheme::live},
        .classification = "classification",
        .videoDescription = "description",
        .captionsAvailable = true,
        .captionsOnAkamai = true,
        .availability = "availability",
        .houseNumber = "houseNumber",
        .playable = true,
        .playableMessage = "playableMessage",
        .relatedLinks = links("relatedLinks"),
        .participants = {{.title = "participants", .list = "A, B"}, {}, {}},
        .analytics = VideoAnalytics{},
        .nextVideoCuePoint = 120,
        .doneCuePoint = 120,
        .shareUrl = "shareUrl",
        .unavailableMessage = "unavailableMessage",
        .selfHref = "_links.self.href",
        .deeplinkHref = "_links.deeplink.href",
        .showId = 120,
        .showHref = "_links.show.href",
        .seriesId = "_links.series.id",
        .seriesHref = "_links.series.href",
        .nextEpisodeHref = "_links.nextEpisode.href",
        .nextEpisodeTitle = "_links.nextEpisode.title",
        .nextEpisodeSeriesTitle = "_links.nextEpisode.seriesTitle",
        .categoryLinks = links("_links.categories"),
        .variationLinks = links("_links.variations"),
        .tags = {"a", "tags"},
        .playableVideo =
            DirectPlayableVideo{.id = "id", .href = "_links.self.href", .playTitle = "_links.highlightVideo"},
        .playlist = {{{.type = PlaylistItem::PlaylistType::viewerAdvice, .streams = streams},
                      {.type = PlaylistItem::PlaylistType::program, .streams = streams, .title = "t"}}},
    };
    const auto full = decoded<Video>(test::fullDocument(videos()));
    ASSERT_TRUE(full);
    EXPECT_EQ(valueText(*full), valueText(video));
    EXPECT_EQ(*full, video);
}

TEST(Participants, HasTwoOptionalStringsThatFailForAnotherType) {
    const test::EntityRules rules{.type = test::decodable<Participants>,
                                  .minimal = "{}",
                                  .fields = {{"title", "title", test::Strictness::optional, test::text()},
                                             {"list", "list", test::Strictness::optional, test::text()}}};
    test::expectDeclaredFields(rules);
    test::expectFieldsInEveryState(rules);
    test::expectErrorsInOrder(rules, {{"title", "1"}, {"list", "[\"a\"]"}});
    test::expectAnObjectOnly(test::decodable<Participants>);
}

TEST(Participants, CanBeInitializedInDeclaredOrder) {
    const Participants participants{.title = "Director", .list = "A, B"};
    EXPECT_EQ(decoded<Participants>(R"({"list":"A, B","title":"Director"})"), participants);
    EXPECT_EQ(valueText(participants), R"({"title":"Director","list":"A, B"})");
}

}  // namespace
}  // namespace VanticRestKit
