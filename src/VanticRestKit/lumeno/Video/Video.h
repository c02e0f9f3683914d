#pragma once

/// \file
/// `Video`: one playable item of the catalogue.

#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>
#include <VanticRestKit/lumeno/Entity/EntityMismatch.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/Playlist/PlaylistItem.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>
#include <VanticRestKit/lumeno/Video/Participants.h>
#include <VanticRestKit/lumeno/Video/VideoAnalytics.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One playable item of the catalogue, with all data needed to display and play it.
///
/// Decoding fails only if the value is not a JSON object, if its "_entity" names another entity, or if its links are
/// not an object. Any other field that is absent or of another type is empty, false or an empty list. Related fields
/// are not made consistent with each other.
struct VRK_EXPORT Video {
    /// The object's "_entity" names another entity.
    using DecodingError = EntityMismatch<Video>;

    /// The id of the video in the service. Key `id`; empty if absent or not a string.
    std::optional<std::string> videoId{};
    /// The URL of an image; see also the ones below.
    std::optional<std::string> thumbnail{};
    /// The URL of an image. Key `thumbnails.portrait`; empty if absent or not a string.
    std::optional<std::string> portraitThumbnail{};
    /// The URL of an image. Key `thumbnails.portraitTitled`; empty if absent or not a string.
    std::optional<std::string> portraitTitledThumbnail{};
    /// The URL of an image. Key `thumbnails.character1`; empty if absent or not a string.
    std::optional<std::string> character1Thumbnail{};
    /// The URL of an image. Key `thumbnails.character2`; empty if absent or not a string.
    std::optional<std::string> character2Thumbnail{};
    /// The URL of an image. Key `thumbnails.episodePortrait`; empty if absent or not a string.
    std::optional<std::string> episodePortraitThumbnail{};
    /// When the video was published. Sent without a time zone; interpreted in that of the device.
    std::optional<Date> pubDate{};
    /// The expiry date. Sent without a time zone; interpreted in that of the device.
    std::optional<Date> expireDate{};
    /// The channel. Key `channel`; empty if absent or not a string.
    std::optional<std::string> channel{};
    /// The title of the channel. Key `channelTitle`; empty if absent or not a string.
    std::optional<std::string> channelTitle{};
    /// Empty if absent or unknown.
    std::optional<LumenoSubtype> subtype{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `kickerTitle`; empty if absent or not a string.
    std::optional<std::string> kickerTitle{};
    /// The title of the show. Key `showTitle`; empty if absent or not a string.
    std::optional<std::string> showTitle{};
    /// The title of the series. Key `seriesTitle`; empty if absent or not a string.
    std::optional<std::string> seriesTitle{};
    /// Key `highlightTitle`; empty if absent or not a string.
    std::optional<std::string> highlightTitle{};
    /// The title to display. Key `displayTitle`; empty if absent or not a string.
    std::optional<std::string> displayTitle{};
    /// The subtitle to display. Key `displaySubtitle`; empty if absent or not a string.
    std::optional<std::string> displaySubtitle{};
    /// Key `format`; empty if absent or not a string.
    std::optional<std::string> format{};
    /// In seconds.
    std::optional<std::uint64_t> duration{};
    /// The duration, as text to display.
    std::optional<std::string> displayDuration{};
    /// The duration, as text for a screen reader.
    std::optional<std::string> displayDurationAccessible{};
    /// The badge of the video. Key `status`; empty if absent or if it cannot be decoded.
    std::optional<Status> status{};
    /// The age classification, as text to display.
    std::optional<std::string> classification{};
    /// The description. Key `description`; empty if absent or not a string.
    std::optional<std::string> videoDescription{};
    /// Whether there are captions. Key `captions`; false if absent or not a boolean.
    bool captionsAvailable{};
    /// For use by the host; the library ignores it. False if absent or not a boolean.
    bool captionsOnAkamai{};
    /// Key `availability`; empty if absent or not a string.
    std::optional<std::string> availability{};
    /// The house number, for `Endpoint::Video`. Key `houseNumber`; empty if absent or not a string.
    std::optional<std::string> houseNumber{};
    /// Whether it can be played. False if absent or not a boolean.
    bool playable{};
    /// The message if it cannot be played; independent of `playable`.
    std::optional<std::string> playableMessage{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> relatedLinks{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Participants> participants{};
    /// The values to report when the video is played. Key `analytics`; empty if absent or if it cannot be decoded.
    std::optional<VideoAnalytics> analytics{};
    /// The time at which to offer the next video, in seconds from the start.
    std::optional<std::uint64_t> nextVideoCuePoint{};
    /// The time after which the video counts as watched, in seconds from the start.
    std::optional<std::uint64_t> doneCuePoint{};
    /// The URL to share. Key `shareUrl`; empty if absent or not a string.
    std::optional<std::string> shareUrl{};
    /// The message to show if it is not available. Key `unavailableMessage`; empty if absent or not a string.
    std::optional<std::string> unavailableMessage{};
    /// The path of the video itself, relative to the API's version prefix.
    std::optional<std::string> selfHref{};
    /// The path of the video in the application.
    std::optional<std::string> deeplinkHref{};
    /// The id of the show; a number, unlike `seriesId`.
    std::optional<std::uint64_t> showId{};
    /// The path of the show. Key `_links.show.href`; empty if absent or not a string.
    std::optional<std::string> showHref{};
    /// The id of the series; a string, unlike `showId`.
    std::optional<std::string> seriesId{};
    /// The path of the series. Key `_links.series.href`; empty if absent or not a string.
    std::optional<std::string> seriesHref{};
    /// The path of the next episode. Key `_links.nextEpisode.href`; empty if absent or not a string.
    std::optional<std::string> nextEpisodeHref{};
    /// The title of the next episode. Key `_links.nextEpisode.title`; empty if absent or not a string.
    std::optional<std::string> nextEpisodeTitle{};
    /// The title of the series of the next episode. Key `_links.nextEpisode.seriesTitle`; empty if absent or not a
    /// string.
    std::optional<std::string> nextEpisodeSeriesTitle{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> categoryLinks{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> variationLinks{};
    /// An empty list if absent or if any element is not a string.
    std::vector<std::string> tags{};
    /// Refers to this video itself, with the service's title for a play button. Every decoded video has one.
    std::optional<DirectPlayableVideo> playableVideo{};
    /// The entries to play, in order. Empty if the service sends no playlist or an entry cannot be decoded, which is
    /// different from an empty list.
    std::optional<std::vector<PlaylistItem>> playlist{};

    /// The slug of the show, extracted from `deeplinkHref`; empty if that has too few components.
    std::optional<std::string> derivedShowSlug() const;

    friend bool operator==(const Video&, const Video&) = default;
};

template <>
struct VRK_EXPORT detail::EntityNames<Video> {
    static constexpr const char* type = "Video";
    static constexpr const char* entity = "video";
    static const ErrorTag& tag();
};

template <>
VRK_EXPORT const TypePlan& planOf<Video>();
/// It is a collection item.
template <>
inline constexpr bool isCollectionItem<Video> = true;
/// The members that it provides as a collection item.
template <>
VRK_EXPORT const CollectionItemTable& collectionItemTable<Video>();

}  // namespace VanticRestKit
