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

/// One programme of the catalogue, with its series, videos and links where the service embeds them.
///
/// Only two things fail its decoding: that it is no JSON object, or that it claims to be another entity. Whatever
/// else is missing or unfit is empty, false or an empty list.
struct VRK_EXPORT Show {
    /// The object claims to be another entity.
    using DecodingError = EntityMismatch<Show>;

    /// A number, unlike a series' id.
    std::optional<std::uint64_t> showId{};
    /// Key `slug`; empty if absent or not a string.
    std::optional<std::string> slug{};
    /// Empty also for a kind that is not known.
    std::optional<LumenoSubtype> subtype{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `kickerTitle`; empty if absent or not a string.
    std::optional<std::string> kickerTitle{};
    /// The title to show. Key `displayTitle`; empty if absent or not a string.
    std::optional<std::string> displayTitle{};
    /// What it is about. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The badge to show on the show.
    std::optional<Status> status{};
    /// Whether there are captions. Key `captions`; false if absent or not a boolean.
    bool captionsAvailable{};
    /// The banner. Key `banner`; empty if absent or if it does not decode.
    std::optional<Banner> banner{};
    /// A decoded show always has one: the default where the service sends none that is known.
    std::optional<Theme> theme{};
    /// Words that describe the show. Key `phrases`; empty if absent or if it does not decode.
    std::optional<ContextualPhrases> phrases{};
    /// The address of a picture. Key `thumbnail`; empty if absent or not a string.
    std::optional<std::string> thumbnail{};
    /// The address of a picture. Key `thumbnails.portrait`; empty if absent or not a string.
    std::optional<std::string> portraitThumbnail{};
    /// The address of a picture. Key `thumbnails.portraitTitled`; empty if absent or not a string.
    std::optional<std::string> portraitTitledThumbnail{};
    /// The address of a picture. Key `thumbnails.character1`; empty if absent or not a string.
    std::optional<std::string> character1Thumbnail{};
    /// The address of a picture. Key `thumbnails.character2`; empty if absent or not a string.
    std::optional<std::string> character2Thumbnail{};
    /// The number of episodes. Key `episodeCount`; empty if absent or not a whole number that is not negative.
    std::optional<std::uint64_t> episodeCount{};
    /// Key `broadcastInfo`; empty if absent or not a string.
    std::optional<std::string> broadcastInfo{};
    /// The title of the social links. Key `socialLinks.title`; empty if absent or not a string.
    std::optional<std::string> socialLinksTitle{};
    /// One that does not decode empties the list.
    std::vector<Link> socialLinks{};
    /// One that does not decode empties the list.
    std::vector<Link> relatedLinks{};
    /// One that does not decode empties the list.
    std::vector<Participants> participants{};
    /// The address to share. Key `shareUrl`; empty if absent or not a string.
    std::optional<std::string> shareUrl{};
    /// When the show last changed. Sent without a zone and read in the device's.
    std::optional<Date> updated{};
    /// For which ages the show is, as a text to show.
    std::optional<std::string> classification{};
    /// One that is no text empties the list.
    std::vector<std::string> tags{};
    /// Key `buy.appleITMS`; empty if absent or not a string.
    std::optional<std::string> buyAppleItmsUrl{};
    /// What to show if it is not available. Key `unavailableMessage`; empty if absent or not a string.
    std::optional<std::string> unavailableMessage{};
    /// In seconds.
    std::optional<std::uint64_t> duration{};
    /// The duration as a text to show.
    std::optional<std::string> displayDuration{};
    /// The duration as a text to read out.
    std::optional<std::string> displayDurationAccessible{};
    /// The path of the show itself, below the API's version prefix.
    std::optional<std::string> selfHref{};
    /// Where the show lies within the application.
    std::optional<std::string> deeplinkHref{};
    /// One that does not decode empties the list.
    std::vector<Link> categoryLinks{};
    /// What `Endpoint::ProductAlert` fetches the alert of the show by.
    std::optional<std::string> alertId{};
    /// The whole video, where the service embeds it. Independent of `playableVideo`.
    std::optional<Video> highlightVideo{};
    /// Independent of `seriesList`.
    std::optional<Series> selectedSeries{};
    /// One that does not decode empties the list.
    std::vector<Series> seriesList{};
    /// One that does not decode empties the list.
    std::vector<Video> videoExtras{};
    /// Key `data.blockout.title`; empty if absent or not a string.
    std::optional<std::string> blockedTitle{};
    /// Key `data.blockout.message`; empty if absent or not a string.
    std::optional<std::string> blockedMessage{};
    /// The channel. Key `channel`; empty if absent or not a string.
    std::optional<std::string> channel{};
    /// The title of the channel. Key `channelTitle`; empty if absent or not a string.
    std::optional<std::string> channelTitle{};
    /// What a play button is to play.
    std::optional<DirectPlayableVideo> playableVideo{};

    /// `title`.
    std::optional<std::string> showTitle() const;
    /// `selfHref`.
    std::optional<std::string> showHref() const;
    /// `slug`, also one without characters; without it the slug found in `selfHref`, where that has enough parts.
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
/// What it gives as a collection item.
template <>
VRK_EXPORT const CollectionItemTable& collectionItemTable<Show>();

template <>
VRK_EXPORT const TypePlan& planOf<Show>();

}  // namespace VanticRestKit
