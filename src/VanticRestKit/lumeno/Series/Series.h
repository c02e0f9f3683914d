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

/// One series of a show, with its episodes and extras if the service embeds them.
///
/// Only the `seriesId`, a string, and the object of links are required. The value of "_entity" is not checked.
struct VRK_EXPORT Series {
    /// A string, unlike the id of a show. Key `id`; required.
    std::string seriesId{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `kickerTitle`; empty if absent or not a string.
    std::optional<std::string> kickerTitle{};
    /// The title of the show. Key `showTitle`; empty if absent or not a string.
    std::optional<std::string> showTitle{};
    /// The title to display. Key `displayTitle`; empty if absent or not a string.
    std::optional<std::string> displayTitle{};
    /// The subtitle to display. Key `displaySubtitle`; empty if absent or not a string.
    std::optional<std::string> displaySubtitle{};
    /// The description. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The URL of an image. Key `thumbnail`; empty if absent or not a string.
    std::optional<std::string> thumbnail{};
    /// The number according to the service; `episodes` may have another size.
    std::optional<std::uint64_t> episodeCount{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Participants> participants{};
    /// The path of the series itself, relative to the API's version prefix.
    std::optional<std::string> selfHref{};
    /// The path of the series in the application.
    std::optional<std::string> deeplinkHref{};
    /// The path of the show. Key `_links.show.href`; empty if absent or not a string.
    std::optional<std::string> showHref{};
    /// The channel. Key `channel`; empty if absent or not a string.
    std::optional<std::string> channel{};
    /// The title of the channel. Key `channelTitle`; empty if absent or not a string.
    std::optional<std::string> channelTitle{};
    /// The complete video, if the service embeds it. Independent of `playableVideo`.
    std::optional<Video> highlightVideo{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Video> episodes{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Video> extras{};
    /// The title of the extras. Key `extrasTitle`; empty if absent or not a string.
    std::optional<std::string> extrasTitle{};
    /// The age classification, as text to display.
    std::optional<std::string> classification{};
    /// An empty list if absent or if any element is not a string.
    std::vector<std::string> tags{};
    /// The id of the show, a number.
    std::optional<std::uint64_t> showId{};
    /// The video that a play button plays.
    std::optional<DirectPlayableVideo> playableVideo{};

    /// The slug of the show, extracted from `deeplinkHref`; empty if that has too few components.
    std::optional<std::string> derivedShowSlug() const;

    friend bool operator==(const Series&, const Series&) = default;
};

/// It is a collection item.
template <>
inline constexpr bool isCollectionItem<Series> = true;
/// The members that it provides as a collection item.
template <>
VRK_EXPORT const CollectionItemTable& collectionItemTable<Series>();

template <>
VRK_EXPORT const TypePlan& planOf<Series>();

}  // namespace VanticRestKit
