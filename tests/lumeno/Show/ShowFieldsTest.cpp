// Tests the 45 fields of a show in every state.

#include <gtest/gtest.h>
#include <lumeno/Show/ShowRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::shows;

TEST(ShowFields, AreFortyFive) {
    ASSERT_EQ(shows().fields.size(), 45U);
    test::expectDeclaredFields(shows());
}

TEST(ShowFields, AreReadFromTheirKeysOrLeftEmptyAndNeverFail) {
    const test::TemporaryZone utc("UTC0");
    test::expectFieldsInEveryState(shows());
}

TEST(ShowFields, AreEmptyWithoutTheirObjectAndNoObjectIsRequired) {
    const test::TemporaryZone utc("UTC0");
    test::expectContainersInEveryState(shows());
}

TEST(ShowFields, AreReadOnlyFromTheirOwnKeys) {
    // Keys similar to those of the fields, and keys in the wrong object.
    const std::string others =
        R"({"showId":1,"subtype":"series","captionsAvailable":true,"portraitThumbnail":"x","portrait":"x","Title":"x",)"
        R"("thumbnails":{"Portrait":"x","episodePortrait":"x","character3":"x","thumbnail":"x"},"socialLinksTitle":"x",)"
        R"("socialLinks":{"href":"x","links":[{"href":"x"}]},"items":[{"href":"x"}],"appleITMS":"x","buyAppleItmsUrl":"x",)"
        R"("buy":{"appleItms":"x","title":"x"},"selfHref":"x","deeplinkHref":"x","alertId":"x","categories":[{"href":"x"}],)"
        R"("highlightVideo":{"playTitle":"x"},"selectedSeries":{"id":"1","_links":{}},"seriesList":[{"id":"1","_links":{}}],)"
        R"("videoExtras":[{"_links":{}}],"blockout":{"title":"x","message":"x"},"blockedTitle":"x","blockedMessage":"x",)"
        R"("_links":{"href":"x","id":"x","Self":{"href":"x"},"self":{"id":"x"},"deeplink":{"id":"x"},"alert":{"href":"x"},)"
        R"("playableVideo":{"id":"x"},"categoryLinks":[{"href":"x"}],"show":{"id":1,"href":"x"}},"data":{"title":"x",)"
        R"("message":"x","blockout":{"id":"x"}},"_embedded":{"series":[{"id":"1","_links":{}}],"blockout":{"title":"x"},)"
        R"("videoEpisodes":[{"_links":{}}],"episodes":[{"_links":{}}]},"playableVideo":{"id":"x"},"extrasTitle":"x"})";
    EXPECT_EQ(decoded<Show>(others), Show{.theme = Theme::default_});
}

TEST(ShowFields, InitializeAShowInDeclaredOrder) {
    const test::TemporaryZone utc("UTC0");
    const auto links = [](const char* path) {
        return std::vector<Link>{{.id = "i", .title = "t", .href = path, .tags = {"a"}}, {.href = ""}};
    };
    const auto video = [](const char* id) {
        return Video{.videoId = id, .playableVideo = DirectPlayableVideo{.id = id}};
    };
    const Show show{
        .showId = 120,
        .slug = "slug",
        .subtype = LumenoSubtype::series,
        .title = "title",
        .kickerTitle = "kickerTitle",
        .displayTitle = "displayTitle",
        .description = "description",
        .status = Status{.title = "status", .theme = StatusTheme::live},
        .captionsAvailable = true,
        .banner = Banner{.largeImageHref = "banner", .smallImageHref = "s", .altText = "a", .linkHref = "l"},
        .theme = Theme::light,
        .phrases = ContextualPhrases{.mood = {{"a", "phrases"}}},
        .thumbnail = "thumbnail",
        .portraitThumbnail = "thumbnails.portrait",
        .portraitTitledThumbnail = "thumbnails.portraitTitled",
        .character1Thumbnail = "thumbnails.character1",
        .character2Thumbnail = "thumbnails.character2",
        .episodeCount = 120,
        .broadcastInfo = "broadcastInfo",
        .socialLinksTitle = "socialLinks.title",
        .socialLinks = links("socialLinks.items"),
        .relatedLinks = links("relatedLinks"),
        .participants = {{.title = "participants", .list = "A, B"}, {}, {}},
        .shareUrl = "shareUrl",
        .updated = Date(std::chrono::duration<double>(1577934245)),
        .classification = "classification",
        .tags = {"a", "tags"},
        .buyAppleItmsUrl = "buy.appleITMS",
        .unavailableMessage = "unavailableMessage",
        .duration = 120,
        .displayDuration = "displayDuration",
        .displayDurationAccessible = "displayDurationAccessible",
        .selfHref = "_links.self.href",
        .deeplinkHref = "_links.deeplink.href",
        .categoryLinks = links("_links.categories"),
        .alertId = "_links.alert.id",
        .highlightVideo = video("_embedded.highlightVideo"),
        .selectedSeries = Series{.seriesId = "_embedded.selectedSeries"},
        .seriesList = {{.seriesId = "_embedded.seriesList"}, {.seriesId = "2"}},
        .videoExtras = {video("_embedded.videoExtras"), video("b")},
        .blockedTitle = "data.blockout.title",
        .blockedMessage = "data.blockout.message",
        .channel = "channel",
        .channelTitle = "channelTitle",
        .playableVideo = DirectPlayableVideo{.id = "a", .href = "b", .playTitle = "_links.highlightVideo"},
    };
    const auto full = decoded<Show>(test::fullDocument(shows()));
    ASSERT_TRUE(full);
    EXPECT_EQ(valueText(*full), valueText(show));
    EXPECT_EQ(*full, show);
}

}  // namespace
}  // namespace VanticRestKit
