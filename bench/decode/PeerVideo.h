#pragma once

// The tables of videos for other parsers.

#include "PeerTables.h"

#include <VanticRestKit/lumeno/Video/VideoList.h>

namespace VanticRestKit::bench {

template <class S>
struct PeerTableOf<Link, S> {
    static const auto& get() {
        static const PeerTable<Link, S> table({row<&Link::href, S>("href"), row<&Link::id, S>("id"),
                                               row<&Link::title, S>("title"), row<&Link::tags, S>("tags")});
        return table;
    }
};

template <class S>
struct PeerTableOf<Status, S> {
    static const auto& get() {
        static const PeerTable<Status, S> table(
            {row<&Status::title, S>("title"), row<&Status::theme, S>("theme")});
        return table;
    }
};

template <class S>
struct PeerTableOf<Participants, S> {
    static const auto& get() {
        static const PeerTable<Participants, S> table(
            {row<&Participants::title, S>("title"), row<&Participants::list, S>("list")});
        return table;
    }
};

template <class S>
struct PeerTableOf<StreamInfo, S> {
    static const auto& get() {
        static const PeerTable<StreamInfo, S> table(
            {row<&StreamInfo::sd, S>("sd"), row<&StreamInfo::sdLow, S>("sd-low"),
             row<&StreamInfo::hd720, S>("720"), row<&StreamInfo::hd1080, S>("1080"),
             row<&StreamInfo::protected_, S>("protected")});
        return table;
    }
};

template <class S>
struct PeerTableOf<Streams, S> {
    static const auto& get() {
        static const PeerTable<Streams, S> table({row<&Streams::mpegdash, S>("mpegdash"),
                                                  row<&Streams::fairplay, S>("fairplay"),
                                                  row<&Streams::hls, S>("hls")});
        return table;
    }
};

template <class S>
struct PeerTableOf<PlaylistItem, S> {
    using P = PlaylistItem;
    static const auto& captions() {
        static const PeerTable<P, S> table({row<&P::captionsSrcVtt, S>("src-vtt")});
        return table;
    }
    static const auto& get() {
        static const PeerTable<P, S> table(
            {row<&P::type, S>("type"),
             row<&P::streams, S>("streams"),
             row<&P::title, S>("title"),
             {"captions", [](P& item, S& value) { captions().fill(item, value); }},
             row<&P::warning, S>("warning")});
        return table;
    }
};

template <class S>
struct PeerTableOf<DirectPlayableVideo, S> {
    using D = DirectPlayableVideo;
    static const auto& get() {
        static const PeerTable<D, S> table(
            {row<&D::id, S>("id"), row<&D::href, S>("href"), row<&D::playTitle, S>("playTitle")});
        return table;
    }
};

template <class S>
struct PeerTableOf<VideoAnalytics, S> {
    using A = VideoAnalytics;
    static const auto& oztam() {
        static const PeerTable<A, S> table(
            {row<&A::oztamPublisherId, S>("publisherId"), row<&A::oztamMediaId, S>("mediaId"),
             row<&A::oztamClassification, S>("classification"), row<&A::oztamSeriesName, S>("seriesName"),
             row<&A::oztamSeriesId, S>("seriesId"), row<&A::oztamEpisodeName, S>("episodeName"),
             row<&A::oztamEpisodeId, S>("episodeId"), row<&A::oztamChannel, S>("channel"),
             row<&A::oztamUrl, S>("url"), row<&A::oztamMediaDuration, S>("mediaDuration"),
             row<&A::oztamMediaType, S>("mediaType")});
        return table;
    }
    static const auto& dataLayer() {
        static const PeerTable<A, S> table(
            {row<&A::dataLayerId, S>("d_id"), row<&A::dataLayerContentType, S>("d_contentType"),
             row<&A::dataLayerContentSource, S>("d_contentSource"), row<&A::dataLayerUri, S>("d_uri"),
             row<&A::dataLayerProgramName, S>("d_program_name"),
             row<&A::dataLayerProgramId, S>("d_program_id"),
             row<&A::dataLayerdSeriesName, S>("d_series_name"), row<&A::dataLayerSeriesId, S>("d_series_id"),
             row<&A::dataLayerEpisodeName, S>("d_episode_name"),
             row<&A::dataLayerEpisodeId, S>("d_episode_id"), row<&A::dataLayerLanguage, S>("d_language"),
             row<&A::dataLayerCanonicalUrl, S>("d_canonicalUrl"),
             row<&A::dataLayerCategories, S>("d_categories"),
             row<&A::dataLayerClassification, S>("d_classification"),
             row<&A::dataLayerMediaDuration, S>("d_mediaDuration"),
             row<&A::dataLayerCaptionAvailable, S>("d_captionsAvailable"),
             row<&A::dataLayerStreamType, S>("d_streamType"), row<&A::dataLayerVideoType, S>("d_videoType"),
             row<&A::dataLayerTitleTitle, S>("d_title_title")});
        return table;
    }
    static const auto& get() {
        static const PeerTable<A, S> table(
            {{"oztam", [](A& all, S& value) { oztam().fill(all, value); }},
             {"dataLayer", [](A& all, S& value) { dataLayer().fill(all, value); }}});
        return table;
    }
};

template <class S>
struct PeerTableOf<Video, S> {
    using V = Video;
    using Table = PeerTable<V, S>;

    static const Table& thumbnails() {
        static const Table table(
            {row<&V::portraitThumbnail, S>("portrait"), row<&V::portraitTitledThumbnail, S>("portraitTitled"),
             row<&V::character1Thumbnail, S>("character1"), row<&V::character2Thumbnail, S>("character2"),
             row<&V::episodePortraitThumbnail, S>("episodePortrait")});
        return table;
    }
    static const Table& self() {
        static const Table table({row<&V::selfHref, S>("href")});
        return table;
    }
    static const Table& deeplink() {
        static const Table table({row<&V::deeplinkHref, S>("href")});
        return table;
    }
    static const Table& show() {
        static const Table table({row<&V::showId, S>("id"), row<&V::showHref, S>("href")});
        return table;
    }
    static const Table& series() {
        static const Table table({row<&V::seriesId, S>("id"), row<&V::seriesHref, S>("href")});
        return table;
    }
    static const Table& nextEpisode() {
        static const Table table({row<&V::nextEpisodeHref, S>("href"), row<&V::nextEpisodeTitle, S>("title"),
                                  row<&V::nextEpisodeSeriesTitle, S>("seriesTitle")});
        return table;
    }
    static const Table& links() {
        static const Table table(
            {{"self", [](V& video, S& value) { self().fill(video, value); }},
             {"deeplink", [](V& video, S& value) { deeplink().fill(video, value); }},
             {"show", [](V& video, S& value) { show().fill(video, value); }},
             {"series", [](V& video, S& value) { series().fill(video, value); }},
             {"nextEpisode", [](V& video, S& value) { nextEpisode().fill(video, value); }},
             row<&V::categoryLinks, S>("categories"),
             row<&V::variationLinks, S>("variations"),
             row<&V::playableVideo, S>("highlightVideo")});
        return table;
    }
    static const Table& embedded() {
        static const Table table({row<&V::playlist, S>("playlist")});
        return table;
    }
    static const Table& get() {
        static const Table table({row<&V::subtype, S>("type"),
                                  row<&V::pubDate, S>("pubDate"),
                                  row<&V::expireDate, S>("expireDate"),
                                  row<&V::videoId, S>("id"),
                                  row<&V::thumbnail, S>("thumbnail"),
                                  row<&V::channel, S>("channel"),
                                  row<&V::channelTitle, S>("channelTitle"),
                                  row<&V::title, S>("title"),
                                  row<&V::kickerTitle, S>("kickerTitle"),
                                  row<&V::showTitle, S>("showTitle"),
                                  row<&V::seriesTitle, S>("seriesTitle"),
                                  row<&V::highlightTitle, S>("highlightTitle"),
                                  row<&V::displayTitle, S>("displayTitle"),
                                  row<&V::displaySubtitle, S>("displaySubtitle"),
                                  row<&V::format, S>("format"),
                                  row<&V::duration, S>("duration"),
                                  row<&V::displayDuration, S>("displayDuration"),
                                  row<&V::displayDurationAccessible, S>("displayDurationAccessible"),
                                  row<&V::status, S>("status"),
                                  row<&V::classification, S>("classification"),
                                  row<&V::videoDescription, S>("description"),
                                  row<&V::captionsAvailable, S>("captions"),
                                  row<&V::captionsOnAkamai, S>("captionsOnAkamai"),
                                  row<&V::availability, S>("availability"),
                                  row<&V::houseNumber, S>("houseNumber"),
                                  row<&V::playable, S>("playable"),
                                  row<&V::playableMessage, S>("playableMessage"),
                                  row<&V::relatedLinks, S>("relatedLinks"),
                                  row<&V::participants, S>("participants"),
                                  row<&V::analytics, S>("analytics"),
                                  row<&V::nextVideoCuePoint, S>("nextVideoCuepoint"),
                                  row<&V::doneCuePoint, S>("doneCuePoint"),
                                  row<&V::shareUrl, S>("shareUrl"),
                                  row<&V::unavailableMessage, S>("unavailableMessage"),
                                  row<&V::tags, S>("tags"),
                                  {"thumbnails", [](V& video, S& value) { thumbnails().fill(video, value); }},
                                  {"_links", [](V& video, S& value) { links().fill(video, value); }},
                                  {"_embedded", [](V& video, S& value) { embedded().fill(video, value); }}});
        return table;
    }
};

template <class S>
struct PeerTableOf<VideoList, S> {
    static const auto& get() {
        static const PeerTable<VideoList, S> table({row<&VideoList::videos, S>("items")});
        return table;
    }
};

/// `playableVideo` refers to the video itself.
template <class S>
void readInto(Video& video, S& value) {
    PeerTableOf<Video, S>::get().fill(video, value);
    if (!video.playableVideo) video.playableVideo.emplace();
    video.playableVideo->id = video.videoId;
    video.playableVideo->href = video.selfHref;
}

}  // namespace VanticRestKit::bench
