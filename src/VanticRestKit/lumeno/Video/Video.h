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

/// One playable item of the catalogue, with all that it needs to be shown and played.
///
/// Only three things fail its decoding: that it is no JSON object, that it claims to be another entity, or that
/// its links are no object. Whatever else is missing or unfit is empty, false or an empty list. Fields that
/// could be told from each other are not made to agree.
struct VRK_EXPORT Video {
    /// The object claims to be another entity.
    using DecodingError = EntityMismatch<Video>;

    /// The number or word by which the service knows the video.
    std::optional<std::string> videoId{};
    /// The address of a picture, beside those below.
    std::optional<std::string> thumbnail{};
    /// The address of a picture. Key `thumbnails.portrait`; empty if absent or not a string.
    std::optional<std::string> portraitThumbnail{};
    /// The address of a picture. Key `thumbnails.portraitTitled`; empty if absent or not a string.
    std::optional<std::string> portraitTitledThumbnail{};
    /// The address of a picture. Key `thumbnails.character1`; empty if absent or not a string.
    std::optional<std::string> character1Thumbnail{};
    /// The address of a picture. Key `thumbnails.character2`; empty if absent or not a string.
    std::optional<std::string> character2Thumbnail{};
    /// The address of a picture. Key `thumbnails.episodePortrait`; empty if absent or not a string.
    std::optional<std::string> episodePortraitThumbnail{};
    /// When the video was published. Sent without a zone and read in the device's.
    std::optional<Date> pubDate{};
    /// When the video goes. Sent without a zone and read in the device's.
    std::optional<Date> expireDate{};
    /// The channel. Key `channel`; empty if absent or not a string.
    std::optional<std::string> channel{};
    /// The title of the channel. Key `channelTitle`; empty if absent or not a string.
    std::optional<std::string> channelTitle{};
    /// Empty also for a kind that is not known.
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
    /// The title to show. Key `displayTitle`; empty if absent or not a string.
    std::optional<std::string> displayTitle{};
    /// The subtitle to show. Key `displaySubtitle`; empty if absent or not a string.
    std::optional<std::string> displaySubtitle{};
    /// Key `format`; empty if absent or not a string.
    std::optional<std::string> format{};
    /// In seconds.
    std::optional<std::uint64_t> duration{};
    /// The duration as a text to show.
    std::optional<std::string> displayDuration{};
    /// The duration as a text to read out.
    std::optional<std::string> displayDurationAccessible{};
    /// The badge to show on the video.
    std::optional<Status> status{};
    /// For which ages the video is, as a text to show.
    std::optional<std::string> classification{};
    /// What the video is about.
    std::optional<std::string> videoDescription{};
    /// Whether there are captions. Key `captions`; false if absent or not a boolean.
    bool captionsAvailable{};
    /// Carried for the host; the library takes no decision on it.
    bool captionsOnAkamai{};
    /// Key `availability`; empty if absent or not a string.
    std::optional<std::string> availability{};
    /// What `Endpoint::Video` fetches the video by.
    std::optional<std::string> houseNumber{};
    /// False also where the service does not say.
    bool playable{};
    /// Independent of `playable`.
    std::optional<std::string> playableMessage{};
    /// One that does not decode empties the list.
    std::vector<Link> relatedLinks{};
    /// One that does not decode empties the list.
    std::vector<Participants> participants{};
    /// What to report when the video is played. Key `analytics`; empty if absent or if it does not decode.
    std::optional<VideoAnalytics> analytics{};
    /// Where the next video is to be offered, in seconds from the start.
    std::optional<std::uint64_t> nextVideoCuePoint{};
    /// From where on the video counts as watched, in seconds from the start.
    std::optional<std::uint64_t> doneCuePoint{};
    /// The address to share. Key `shareUrl`; empty if absent or not a string.
    std::optional<std::string> shareUrl{};
    /// What to show if it is not available. Key `unavailableMessage`; empty if absent or not a string.
    std::optional<std::string> unavailableMessage{};
    /// The path of the video itself, below the API's version prefix.
    std::optional<std::string> selfHref{};
    /// Where the video lies within the application.
    std::optional<std::string> deeplinkHref{};
    /// A number, unlike `seriesId`.
    std::optional<std::uint64_t> showId{};
    /// The path of the show. Key `_links.show.href`; empty if absent or not a string.
    std::optional<std::string> showHref{};
    /// A text, unlike `showId`.
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
    /// One that does not decode empties the list.
    std::vector<Link> categoryLinks{};
    /// One that does not decode empties the list.
    std::vector<Link> variationLinks{};
    /// One that is no text empties the list.
    std::vector<std::string> tags{};
    /// Points at this video itself, with the title that the service gives for playing it. Every decoded video has
    /// one.
    std::optional<DirectPlayableVideo> playableVideo{};
    /// What is played, in order. Empty where the service sends none or an entry does not decode; a list without
    /// entries is something else.
    std::optional<std::vector<PlaylistItem>> playlist{};

    /// The slug of the show, found in `deeplinkHref`; empty where that has too few parts.
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
/// What it gives as a collection item.
template <>
VRK_EXPORT const CollectionItemTable& collectionItemTable<Video>();

}  // namespace VanticRestKit
