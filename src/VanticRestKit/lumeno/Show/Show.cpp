#include <VanticRestKit/lumeno/Show/Show.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Show>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Show>(
        entity<Show>("show"),
        lenient<&Show::subtype, fromRaw<LumenoSubtype>>("type"),
        lenientOr<&Show::theme, Theme::default_, fromRaw<Theme>>("theme"),
        lenient<&Show::updated, deviceDate>("updated"),
        lenient<&Show::showId>("id"),
        lenient<&Show::slug>("slug"),
        lenient<&Show::title>("title"),
        lenient<&Show::kickerTitle>("kickerTitle"),
        lenient<&Show::displayTitle>("displayTitle"),
        lenient<&Show::description>("description"),
        lenient<&Show::status>("status"),
        lenient<&Show::captionsAvailable>("captions"),
        lenient<&Show::banner>("banner"),
        lenient<&Show::phrases>("phrases"),
        lenient<&Show::thumbnail>("thumbnail"),
        lenient<&Show::episodeCount>("episodeCount"),
        lenient<&Show::broadcastInfo>("broadcastInfo"),
        lenient<&Show::relatedLinks>("relatedLinks"),
        lenient<&Show::participants>("participants"),
        lenient<&Show::shareUrl>("shareUrl"),
        lenient<&Show::classification>("classification"),
        lenient<&Show::tags>("tags"),
        lenient<&Show::unavailableMessage>("unavailableMessage"),
        lenient<&Show::duration>("duration"),
        lenient<&Show::displayDuration>("displayDuration"),
        lenient<&Show::displayDurationAccessible>("displayDurationAccessible"),
        lenient<&Show::channel>("channel"),
        lenient<&Show::channelTitle>("channelTitle"),
        lenientObject("socialLinks",
            lenient<&Show::socialLinksTitle>("title"),
            lenient<&Show::socialLinks>("items")),
        lenientObject("thumbnails",
            lenient<&Show::portraitThumbnail>("portrait"),
            lenient<&Show::portraitTitledThumbnail>("portraitTitled"),
            lenient<&Show::character1Thumbnail>("character1"),
            lenient<&Show::character2Thumbnail>("character2")),
        lenientObject("buy",
            lenient<&Show::buyAppleItmsUrl>("appleITMS")),
        lenientObject("_links",
            lenientObject("self",
                lenient<&Show::selfHref>("href")),
            lenientObject("deeplink",
                lenient<&Show::deeplinkHref>("href")),
            lenient<&Show::categoryLinks>("categories"),
            lenientObject("alert",
                lenient<&Show::alertId>("id")),
            lenient<&Show::playableVideo>("highlightVideo")),
        lenientObject("_embedded",
            lenient<&Show::highlightVideo>("highlightVideo"),
            lenient<&Show::selectedSeries>("selectedSeries"),
            lenient<&Show::seriesList>("seriesList"),
            lenient<&Show::videoExtras>("videoExtras")),
        lenientObject("data",
            lenientObject("blockout",
                lenient<&Show::blockedTitle>("title"),
                lenient<&Show::blockedMessage>("message"))));
    // clang-format on
    return plan;
}

template <>
const CollectionItemTable& collectionItemTable<Show>() {
    using enum CollectionItemMember;
    // clang-format off
    static constexpr CollectionItemTable table = collectionItem<Show>(
        own<selfHref, &Show::selfHref>(),
        own<deeplinkHref, &Show::deeplinkHref>(),
        own<title, &Show::title>(),
        own<displayTitle, &Show::displayTitle>(),
        own<thumbnail, &Show::thumbnail>(),
        own<showTitle, &Show::showTitle>(),
        own<showId, &Show::showId>(),
        own<playableVideo, &Show::playableVideo>(),
        own<subtype, &Show::subtype>(),
        own<status, &Show::status>(),
        own<captionsAvailable, &Show::captionsAvailable>(),
        own<classification, &Show::classification>(),
        own<kickerTitle, &Show::kickerTitle>(),
        own<duration, &Show::duration>(),
        own<displayDuration, &Show::displayDuration>(),
        own<displayDurationAccessible, &Show::displayDurationAccessible>(),
        own<portraitThumbnail, &Show::portraitThumbnail>(),
        own<portraitTitledThumbnail, &Show::portraitTitledThumbnail>(),
        own<character1Thumbnail, &Show::character1Thumbnail>(),
        own<character2Thumbnail, &Show::character2Thumbnail>(),
        own<updated, &Show::updated>(),
        own<description, &Show::description>(),
        own<episodeCount, &Show::episodeCount>(),
        own<slug, &Show::slug>(),
        own<broadcastInfo, &Show::broadcastInfo>(),
        own<categoryLinks, &Show::categoryLinks>(),
        own<tags, &Show::tags>(),
        own<showHref, &Show::showHref>(),
        own<channel, &Show::channel>(),
        own<channelTitle, &Show::channelTitle>(),
        own<derivedShowSlug, &Show::derivedShowSlug>());
    // clang-format on
    return table;
}

std::optional<std::string> Show::showTitle() const { return title; }

std::optional<std::string> Show::showHref() const { return selfHref; }

std::optional<std::string> Show::derivedShowSlug() const {
    return slug ? slug : CollectionItem::defaultShowSlug({.from = selfHref});
}

const ErrorTag& detail::EntityNames<Show>::tag() {
    static const ErrorTag tag;
    return tag;
}

}  // namespace VanticRestKit
