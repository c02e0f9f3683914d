#pragma once

/// \file
/// `Series`: one series of a show.

#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One series of a show, with its episodes and extras where the service embeds them.
///
/// It must have a text `seriesId` and an object of links; nothing else fails its decoding, and no check is made of
/// which entity the object claims to be.
struct VRK_EXPORT Series {
    /// A text, unlike a show's id.
    std::string seriesId{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `kickerTitle`; empty if absent or not a string.
    std::optional<std::string> kickerTitle{};
    /// The title of the show. Key `showTitle`; empty if absent or not a string.
    std::optional<std::string> showTitle{};
    /// The title to show. Key `displayTitle`; empty if absent or not a string.
    std::optional<std::string> displayTitle{};
    /// The subtitle to show. Key `displaySubtitle`; empty if absent or not a string.
    std::optional<std::string> displaySubtitle{};
    /// What it is about. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The address of a picture. Key `thumbnail`; empty if absent or not a string.
    std::optional<std::string> thumbnail{};
    /// As the service counts; `episodes` may hold another number.
    std::optional<std::uint64_t> episodeCount{};
    /// One that does not decode empties the list.
    std::vector<Participants> participants{};
    /// The path of the series itself, below the API's version prefix.
    std::optional<std::string> selfHref{};
    /// Where the series lies within the application.
    std::optional<std::string> deeplinkHref{};
    /// The path of the show. Key `_links.show.href`; empty if absent or not a string.
    std::optional<std::string> showHref{};
    /// The channel. Key `channel`; empty if absent or not a string.
    std::optional<std::string> channel{};
    /// The title of the channel. Key `channelTitle`; empty if absent or not a string.
    std::optional<std::string> channelTitle{};
    /// The whole video, where the service embeds it. Independent of `playableVideo`.
    std::optional<Video> highlightVideo{};
    /// One that does not decode empties the list.
    std::vector<Video> episodes{};
    /// One that does not decode empties the list.
    std::vector<Video> extras{};
    /// The title of the extras. Key `extrasTitle`; empty if absent or not a string.
    std::optional<std::string> extrasTitle{};
    /// For which ages the series is, as a text to show.
    std::optional<std::string> classification{};
    /// One that is no text empties the list.
    std::vector<std::string> tags{};
    /// The id of the show, a number.
    std::optional<std::uint64_t> showId{};
    /// What a play button is to play.
    std::optional<DirectPlayableVideo> playableVideo{};

    /// The slug of the show, found in `deeplinkHref`; empty where that has too few parts.
    std::optional<std::string> derivedShowSlug() const;

    friend bool operator==(const Series&, const Series&) = default;
};

/// It is a collection item.
template <>
inline constexpr bool isCollectionItem<Series> = true;
/// What it gives as a collection item.
template <>
VRK_EXPORT const CollectionItemTable& collectionItemTable<Series>();

template <>
VRK_EXPORT const TypePlan& planOf<Series>();

}  // namespace VanticRestKit
