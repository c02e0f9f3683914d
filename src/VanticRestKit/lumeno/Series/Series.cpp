#include <VanticRestKit/lumeno/Series/Series.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Series>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Series>(
        required<&Series::seriesId>("id"),
        lenient<&Series::title>("title"),
        lenient<&Series::kickerTitle>("kickerTitle"),
        lenient<&Series::showTitle>("showTitle"),
        lenient<&Series::displayTitle>("displayTitle"),
        lenient<&Series::displaySubtitle>("displaySubtitle"),
        lenient<&Series::description>("description"),
        lenient<&Series::thumbnail>("thumbnail"),
        lenient<&Series::episodeCount>("episodeCount"),
        lenient<&Series::participants>("participants"),
        unread("shareUrl"),
        lenient<&Series::classification>("classification"),
        lenient<&Series::tags>("tags"),
        lenient<&Series::channel>("channel"),
        lenient<&Series::channelTitle>("channelTitle"),
        lenient<&Series::extrasTitle>("extrasTitle"),
        requiredObject("_links",
            lenientObject("self",
                lenient<&Series::selfHref>("href")),
            lenientObject("deeplink",
                lenient<&Series::deeplinkHref>("href")),
            lenientObject("show",
                lenient<&Series::showHref>("href"),
                lenient<&Series::showId>("id")),
            lenient<&Series::playableVideo>("highlightVideo")),
        lenientObject("_embedded",
            lenient<&Series::episodes>("videoEpisodes"),
            lenient<&Series::extras>("videoExtras"),
            lenient<&Series::highlightVideo>("highlightVideo")));
    // clang-format on
    return plan;
}

template <>
const CollectionItemTable& collectionItemTable<Series>() {
    using enum CollectionItemMember;
    // clang-format off
    static constexpr CollectionItemTable table = collectionItem<Series>(
        own<selfHref, &Series::selfHref>(),
        own<deeplinkHref, &Series::deeplinkHref>(),
        own<title, &Series::title>(),
        own<displayTitle, &Series::displayTitle>(),
        own<thumbnail, &Series::thumbnail>(),
        own<showTitle, &Series::showTitle>(),
        own<showId, &Series::showId>(),
        own<playableVideo, &Series::playableVideo>(),
        own<classification, &Series::classification>(),
        own<kickerTitle, &Series::kickerTitle>(),
        own<displaySubtitle, &Series::displaySubtitle>(),
        own<description, &Series::description>(),
        own<episodeCount, &Series::episodeCount>(),
        own<tags, &Series::tags>(),
        own<showHref, &Series::showHref>(),
        own<channel, &Series::channel>(),
        own<channelTitle, &Series::channelTitle>(),
        own<derivedShowSlug, &Series::derivedShowSlug>());
    // clang-format on
    return table;
}

std::optional<std::string> Series::derivedShowSlug() const {
    return CollectionItem::defaultShowSlug({.from = deeplinkHref});
}

}  // namespace VanticRestKit
