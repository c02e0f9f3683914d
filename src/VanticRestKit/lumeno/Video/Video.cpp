#include <VanticRestKit/lumeno/Video/Video.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

namespace {

/// `playableVideo` always refers to the video itself; of the values that the service sends, only the title is used.
void referToItself(Video& video) {
    if (!video.playableVideo) video.playableVideo.emplace();
    video.playableVideo->id = video.videoId;
    video.playableVideo->href = video.selfHref;
}

}  // namespace

template <>
const TypePlan& planOf<Video>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Video>(
        entity<Video>("video"),
        lenient<&Video::subtype, fromRaw<LumenoSubtype>>("type"),
        lenient<&Video::pubDate, deviceDate>("pubDate"),
        lenient<&Video::expireDate, deviceDate>("expireDate"),
        lenient<&Video::videoId>("id"),
        lenient<&Video::thumbnail>("thumbnail"),
        lenient<&Video::channel>("channel"),
        lenient<&Video::channelTitle>("channelTitle"),
        lenient<&Video::title>("title"),
        lenient<&Video::kickerTitle>("kickerTitle"),
        lenient<&Video::showTitle>("showTitle"),
        lenient<&Video::seriesTitle>("seriesTitle"),
        lenient<&Video::highlightTitle>("highlightTitle"),
        lenient<&Video::displayTitle>("displayTitle"),
        lenient<&Video::displaySubtitle>("displaySubtitle"),
        lenient<&Video::format>("format"),
        lenient<&Video::duration>("duration"),
        lenient<&Video::displayDuration>("displayDuration"),
        lenient<&Video::displayDurationAccessible>("displayDurationAccessible"),
        lenient<&Video::status>("status"),
        lenient<&Video::classification>("classification"),
        lenient<&Video::videoDescription>("description"),
        lenient<&Video::captionsAvailable>("captions"),
        lenient<&Video::captionsOnAkamai>("captionsOnAkamai"),
        lenient<&Video::availability>("availability"),
        lenient<&Video::houseNumber>("houseNumber"),
        lenient<&Video::playable>("playable"),
        lenient<&Video::playableMessage>("playableMessage"),
        lenient<&Video::relatedLinks>("relatedLinks"),
        lenient<&Video::participants>("participants"),
        lenient<&Video::analytics>("analytics"),
        lenient<&Video::nextVideoCuePoint>("nextVideoCuepoint"),
        lenient<&Video::doneCuePoint>("doneCuePoint"),
        lenient<&Video::shareUrl>("shareUrl"),
        lenient<&Video::unavailableMessage>("unavailableMessage"),
        lenient<&Video::tags>("tags"),
        lenientObject("thumbnails",
            lenient<&Video::portraitThumbnail>("portrait"),
            lenient<&Video::portraitTitledThumbnail>("portraitTitled"),
            lenient<&Video::character1Thumbnail>("character1"),
            lenient<&Video::character2Thumbnail>("character2"),
            lenient<&Video::episodePortraitThumbnail>("episodePortrait")),
        requiredObject("_links",
            lenientObject("self",
                lenient<&Video::selfHref>("href")),
            lenientObject("deeplink",
                lenient<&Video::deeplinkHref>("href"),
                unread("id")),
            lenientObject("show",
                lenient<&Video::showId>("id"),
                lenient<&Video::showHref>("href")),
            lenientObject("series",
                lenient<&Video::seriesId>("id"),
                lenient<&Video::seriesHref>("href")),
            lenientObject("nextEpisode",
                lenient<&Video::nextEpisodeHref>("href"),
                lenient<&Video::nextEpisodeTitle>("title"),
                lenient<&Video::nextEpisodeSeriesTitle>("seriesTitle")),
            lenient<&Video::categoryLinks>("categories"),
            lenient<&Video::variationLinks>("variations"),
            derived<&Video::playableVideo, referToItself>("highlightVideo")),
        lenientObject("_embedded",
            lenient<&Video::playlist>("playlist")));
    // clang-format on
    return plan;
}

template <>
const CollectionItemTable& collectionItemTable<Video>() {
    using enum CollectionItemMember;
    // clang-format off
    static constexpr CollectionItemTable table = collectionItem<Video>(
        own<selfHref, &Video::selfHref>(),
        own<deeplinkHref, &Video::deeplinkHref>(),
        own<title, &Video::title>(),
        own<displayTitle, &Video::displayTitle>(),
        own<thumbnail, &Video::thumbnail>(),
        own<showTitle, &Video::showTitle>(),
        own<showId, &Video::showId>(),
        own<playableVideo, &Video::playableVideo>(),
        own<subtype, &Video::subtype>(),
        own<status, &Video::status>(),
        own<captionsAvailable, &Video::captionsAvailable>(),
        own<classification, &Video::classification>(),
        own<kickerTitle, &Video::kickerTitle>(),
        own<displaySubtitle, &Video::displaySubtitle>(),
        own<seriesTitle, &Video::seriesTitle>(),
        own<houseNumber, &Video::houseNumber>(),
        own<duration, &Video::duration>(),
        own<displayDuration, &Video::displayDuration>(),
        own<displayDurationAccessible, &Video::displayDurationAccessible>(),
        own<availability, &Video::availability>(),
        own<portraitThumbnail, &Video::portraitThumbnail>(),
        own<portraitTitledThumbnail, &Video::portraitTitledThumbnail>(),
        own<episodePortraitThumbnail, &Video::episodePortraitThumbnail>(),
        own<character1Thumbnail, &Video::character1Thumbnail>(),
        own<character2Thumbnail, &Video::character2Thumbnail>(),
        own<categoryLinks, &Video::categoryLinks>(),
        own<tags, &Video::tags>(),
        own<showHref, &Video::showHref>(),
        own<channel, &Video::channel>(),
        own<channelTitle, &Video::channelTitle>(),
        own<derivedShowSlug, &Video::derivedShowSlug>());
    // clang-format on
    return table;
}

std::optional<std::string> Video::derivedShowSlug() const {
    return CollectionItem::defaultShowSlug({.from = deeplinkHref});
}

const ErrorTag& detail::EntityNames<Video>::tag() {
    static const ErrorTag tag;
    return tag;
}

}  // namespace VanticRestKit
