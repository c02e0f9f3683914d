#pragma once

// The tables of shows and series for other parsers.

#include "PeerVideo.h"

#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/platform/text/detail/Format.h>

namespace VanticRestKit::bench {

template <class S>
struct PeerTableOf<Banner, S> {
    static const auto& get() {
        static const PeerTable<Banner, S> table(
            {row<&Banner::largeImageHref, S>("large"), row<&Banner::smallImageHref, S>("small"),
             row<&Banner::altText, S>("altText"), row<&Banner::linkHref, S>("link")});
        return table;
    }
};

template <class S>
struct PeerTableOf<ContextualPhrases, S> {
    using P = ContextualPhrases;
    static const auto& get() {
        static const PeerTable<P, S> table({row<&P::channel, S>("channel"), row<&P::genre, S>("genre"),
                                            row<&P::subGenre, S>("subGenre"), row<&P::theme, S>("theme"),
                                            row<&P::mood, S>("mood"), row<&P::audience, S>("audience"),
                                            row<&P::need, S>("need"), row<&P::other, S>("other")});
        return table;
    }
};

/// The nested object `name` of an entity; its members are fields of the entity itself.
template <class E, class S, const PeerTable<E, S>& (*Table)()>
PeerRow<E, S> inside(std::string_view name) {
    return {name, [](E& entity, S& value) { Table().fill(entity, value); }};
}

template <class S>
struct PeerTableOf<Series, S> {
    using E = Series;
    using Table = PeerTable<E, S>;

    static const Table& self() {
        static const Table table({row<&E::selfHref, S>("href")});
        return table;
    }
    static const Table& deeplink() {
        static const Table table({row<&E::deeplinkHref, S>("href")});
        return table;
    }
    static const Table& show() {
        static const Table table({row<&E::showHref, S>("href"), row<&E::showId, S>("id")});
        return table;
    }
    static const Table& links() {
        static const Table table({inside<E, S, self>("self"), inside<E, S, deeplink>("deeplink"),
                                  inside<E, S, show>("show"), row<&E::playableVideo, S>("highlightVideo")});
        return table;
    }
    static const Table& get() {
        static const Table table(
            {row<&E::seriesId, S>("id"), row<&E::title, S>("title"), row<&E::kickerTitle, S>("kickerTitle"),
             row<&E::showTitle, S>("showTitle"), row<&E::displayTitle, S>("displayTitle"),
             row<&E::displaySubtitle, S>("displaySubtitle"), row<&E::description, S>("description"),
             row<&E::thumbnail, S>("thumbnail"), row<&E::episodeCount, S>("episodeCount"),
             row<&E::participants, S>("participants"), row<&E::classification, S>("classification"),
             row<&E::tags, S>("tags"), row<&E::channel, S>("channel"),
             row<&E::channelTitle, S>("channelTitle"), row<&E::extrasTitle, S>("extrasTitle"),
             inside<E, S, links>("_links")});
        return table;
    }
};

template <class S>
struct PeerTableOf<Show, S> {
    using E = Show;
    using Table = PeerTable<E, S>;

    static const Table& thumbnails() {
        static const Table table(
            {row<&E::portraitThumbnail, S>("portrait"), row<&E::portraitTitledThumbnail, S>("portraitTitled"),
             row<&E::character1Thumbnail, S>("character1"), row<&E::character2Thumbnail, S>("character2")});
        return table;
    }
    static const Table& self() {
        static const Table table({row<&E::selfHref, S>("href")});
        return table;
    }
    static const Table& deeplink() {
        static const Table table({row<&E::deeplinkHref, S>("href")});
        return table;
    }
    static const Table& links() {
        static const Table table({inside<E, S, self>("self"), inside<E, S, deeplink>("deeplink"),
                                  row<&E::categoryLinks, S>("categories"),
                                  row<&E::playableVideo, S>("highlightVideo")});
        return table;
    }
    static const Table& get() {
        static const Table table({row<&E::subtype, S>("type"),
                                  row<&E::theme, S>("theme"),
                                  row<&E::updated, S>("updated"),
                                  row<&E::showId, S>("id"),
                                  row<&E::slug, S>("slug"),
                                  row<&E::title, S>("title"),
                                  row<&E::kickerTitle, S>("kickerTitle"),
                                  row<&E::displayTitle, S>("displayTitle"),
                                  row<&E::description, S>("description"),
                                  row<&E::status, S>("status"),
                                  row<&E::captionsAvailable, S>("captions"),
                                  row<&E::banner, S>("banner"),
                                  row<&E::phrases, S>("phrases"),
                                  row<&E::thumbnail, S>("thumbnail"),
                                  row<&E::episodeCount, S>("episodeCount"),
                                  row<&E::broadcastInfo, S>("broadcastInfo"),
                                  row<&E::relatedLinks, S>("relatedLinks"),
                                  row<&E::participants, S>("participants"),
                                  row<&E::shareUrl, S>("shareUrl"),
                                  row<&E::classification, S>("classification"),
                                  row<&E::tags, S>("tags"),
                                  row<&E::unavailableMessage, S>("unavailableMessage"),
                                  row<&E::duration, S>("duration"),
                                  row<&E::displayDuration, S>("displayDuration"),
                                  row<&E::displayDurationAccessible, S>("displayDurationAccessible"),
                                  row<&E::channel, S>("channel"),
                                  row<&E::channelTitle, S>("channelTitle"),
                                  inside<E, S, thumbnails>("thumbnails"),
                                  inside<E, S, links>("_links")});
        return table;
    }
};

template <class S>
struct PeerTableOf<ShowsGrouped, S> {
    static const auto& get() {
        static const PeerTable<ShowsGrouped, S> table(
            {row<&ShowsGrouped::groupingName, S>("name"), row<&ShowsGrouped::shows, S>("items")});
        return table;
    }
};

template <class S>
struct PeerTableOf<ShowsIndex, S> {
    static const auto& get() {
        static const PeerTable<ShowsIndex, S> table({row<&ShowsIndex::groups, S>("items")});
        return table;
    }
};

/// A group has a summary for each of its shows; all shows in these documents have the required data.
template <class S>
void readInto(ShowsGrouped& group, S& value) {
    PeerTableOf<ShowsGrouped, S>::get().fill(group, value);
    group.showSummaries.reserve(group.shows.size());
    for (const Show& show : group.shows) {
        ShowSummary& summary = group.showSummaries.emplace_back(mapping::detail::fresh<ShowSummary>());
        summary.id = detail::zeroFractionFormat(show.showId.value());
        summary.title = show.title.value();
        summary.displayTitle = show.displayTitle.value();
        summary.updated = show.updated.value();
        summary.href = show.selfHref.value();
        summary.thumbnail = show.thumbnail.value();
        summary.portraitThumbnailHref = show.portraitThumbnail;
        summary.characterThumbnaiHref = show.character1Thumbnail;
        summary.derivedShowSlug = show.slug;
    }
}

}  // namespace VanticRestKit::bench
