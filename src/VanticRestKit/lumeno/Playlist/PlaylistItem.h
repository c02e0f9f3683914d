#pragma once

/// \file
/// `PlaylistItem`: one entry of a video's playlist.

#include <VanticRestKit/lumeno/Playlist/Streams.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// One entry of a video's playlist. An entry of an unknown kind cannot be decoded, and neither can the playlist that
/// contains it.
struct PlaylistItem {
    /// The kind of an entry.
    enum class PlaylistType { program, rating, viewerAdvice, preroll, livestream, trailer };

    /// Key `type`; required.
    PlaylistType type{};
    /// The streams. Key `streams`; required.
    Streams streams{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// The URL of a WebVTT file with the captions. Key `captions.src-vtt`; empty if absent or not a string.
    std::optional<std::string> captionsSrcVtt{};
    /// A warning for the viewer. Key `warning`; empty if absent or not a string.
    std::optional<std::string> warning{};

    friend bool operator==(const PlaylistItem&, const PlaylistItem&) = default;
};

/// The raw strings of `PlaylistItem::PlaylistType`.
template <>
struct RawTexts<PlaylistItem::PlaylistType> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<PlaylistItem::PlaylistType> cases[] = {
        {PlaylistItem::PlaylistType::program, "program", "program"},
        {PlaylistItem::PlaylistType::rating, "rating", "rating"},
        {PlaylistItem::PlaylistType::viewerAdvice, "viewerAdvice", "va"},
        {PlaylistItem::PlaylistType::preroll, "preroll", "preroll"},
        {PlaylistItem::PlaylistType::livestream, "livestream", "livestream"},
        {PlaylistItem::PlaylistType::trailer, "trailer", "trailer"},
    };
};

template <>
VRK_EXPORT const TypePlan& planOf<PlaylistItem>();

}  // namespace VanticRestKit
