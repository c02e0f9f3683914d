#pragma once

/// \file
/// `Show`: one programme of the catalogue.

#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>
#include <VanticRestKit/lumeno/Entity/EntityMismatch.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>
#include <VanticRestKit/lumeno/Video/Participants.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One programme of the catalogue, with its series, videos and links if the service embeds them.
///
/// Decoding fails only if the value is not a JSON object or if its "_entity" names another entity. Any other field that
/// is absent or of another type is empty, false or an empty list.
struct VRK_EXPORT Show {
    /// The object's "_entity" names another entity.
    using DecodingError = EntityMismatch<Show>;

    /// A number, unlike the id of a series. Key `id`; empty if absent or not a non-negative whole number.
    std::optional<std::uint64_t> showId{};
    /// Key `slug`; empty if absent or not a string.
    std::optional<std::string> slug{};
    /// Empty if absent or unknown.
    std::optional<LumenoSubtype> subtype{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `kickerTitle`; empty if absent or not a string.
    std::optional<std::string> kickerTitle{};
    /// The title to display. Key `displayTitle`; empty if absent or not a string.
    std::optional<std::string> displayTitle{};
    /// The description. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The badge of the show. Key `status`; empty if absent or if it cannot be decoded.
    std::optional<Status> status{};
    /// Whether there are captions. Key `captions`; false if absent or not a boolean.
    bool captionsAvailable{};
    /// The banner. Key `banner`; empty if absent or if it cannot be decoded.
    std::optional<Banner> banner{};
    /// The colour theme. Every decoded show has one: the default if the service sends none, or an unknown one.
    std::optional<Theme> theme{};
    /// Words that describe the show. Key `phrases`; empty if absent or if it cannot be decoded.
    std::optional<ContextualPhrases> phrases{};
    /// The URL of an image. Key `thumbnail`; empty if absent or not a string.
    std::optional<std::string> thumbnail{};
    /// The URL of an image. Key `thumbnails.portrait`; empty if absent or not a string.
    std::optional<std::string> portraitThumbnail{};
    /// The URL of an image. Key `thumbnails.portraitTitled`; empty if absent or not a string.
    std::optional<std::string> portraitTitledThumbnail{};
    /// The URL of an image. Key `thumbnails.character1`; empty if absent or not a string.
    std::optional<std::string> character1Thumbnail{};
    /// The URL of an image. Key `thumbnails.character2`; empty if absent or not a string.
    std::optional<std::string> character2Thumbnail{};
    /// The number of episodes. Key `episodeCount`; empty if absent or not a non-negative whole number.
    std::optional<std::uint64_t> episodeCount{};
    /// Key `broadcastInfo`; empty if absent or not a string.
    std::optional<std::string> broadcastInfo{};
    /// The title of the social links. Key `socialLinks.title`; empty if absent or not a string.
    std::optional<std::string> socialLinksTitle{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> socialLinks{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> relatedLinks{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Participants> participants{};
    /// The URL to share. Key `shareUrl`; empty if absent or not a string.
    std::optional<std::string> shareUrl{};
    /// When the show was last changed. Sent without a time zone; interpreted in that of the device.
    std::optional<Date> updated{};
    /// The age classification, as text to display.
    std::optional<std::string> classification{};
    /// An empty list if absent or if any element is not a string.
    std::vector<std::string> tags{};
    /// Key `buy.appleITMS`; empty if absent or not a string.
    std::optional<std::string> buyAppleItmsUrl{};
    /// The message to show if it is not available. Key `unavailableMessage`; empty if absent or not a string.
    std::optional<std::string> unavailableMessage{};
    /// In seconds.
    std::optional<std::uint64_t> duration{};
    /// The duration, as text to display.
    std::optional<std::string> displayDuration{};
    /// The duration, as text for a screen reader.
    std::optional<std::string> displayDurationAccessible{};
    /// The path of the show itself, relative to the API's version prefix.
    std::optional<std::string> selfHref{};
    /// The path of the show in the application.
    std::optional<std::string> deeplinkHref{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> categoryLinks{};
    /// The id of the alert about the show, for `Endpoint::ProductAlert`.
    std::optional<std::string> alertId{};
    /// The complete video, if the service embeds it. Independent of `playableVideo`.
    std::optional<Video> highlightVideo{};
    /// Independent of `seriesList`.
    std::optional<Series> selectedSeries{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Series> seriesList{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Video> videoExtras{};
    /// Key `data.blockout.title`; empty if absent or not a string.
    std::optional<std::string> blockedTitle{};
    /// Key `data.blockout.message`; empty if absent or not a string.
    std::optional<std::string> blockedMessage{};
    /// The channel. Key `channel`; empty if absent or not a string.
    std::optional<std::string> channel{};
    /// The title of the channel. Key `channelTitle`; empty if absent or not a string.
    std::optional<std::string> channelTitle{};
    /// The video that a play button plays.
    std::optional<DirectPlayableVideo> playableVideo{};

    /// `title`.
    std::optional<std::string> showTitle() const;
    /// `selfHref`.
    std::optional<std::string> showHref() const;
    /// `slug`, even if it is an empty string; if there is none, the slug extracted from `selfHref`, or empty.
    std::optional<std::string> derivedShowSlug() const;

    friend bool operator==(const Show&, const Show&) = default;
};

template <>
struct VRK_EXPORT detail::EntityNames<Show> {
    static constexpr const char* type = "Show";
    static constexpr const char* entity = "show";
    static const ErrorTag& tag();
};

/// It is a collection item.
template <>
inline constexpr bool isCollectionItem<Show> = true;
/// The members that it provides as a collection item.
template <>
VRK_EXPORT const CollectionItemTable& collectionItemTable<Show>();

template <>
VRK_EXPORT const TypePlan& planOf<Show>();

}  // namespace VanticRestKit
