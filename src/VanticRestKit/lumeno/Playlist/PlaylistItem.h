#pragma once

/// \file
/// `PlaylistItem`: one entry of what is played for a video.

#include <VanticRestKit/lumeno/Playlist/Streams.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// One entry of what is played for a video. An entry of a kind that is not known does not decode, and with it
/// the whole playlist that holds it.
struct PlaylistItem {
    /// What an entry of a playlist is.
    enum class PlaylistType { program, rating, viewerAdvice, preroll, livestream, trailer };

    /// Key `type`; must be there.
    PlaylistType type{};
    /// Where it is played from. Key `streams`; must be there.
    Streams streams{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Where the captions lie, as a WebVTT file.
    std::optional<std::string> captionsSrcVtt{};
    /// What the viewer is to be warned of.
    std::optional<std::string> warning{};

    friend bool operator==(const PlaylistItem&, const PlaylistItem&) = default;
};

/// The raw texts of `PlaylistItem::PlaylistType`.
template <>
struct RawTexts<PlaylistItem::PlaylistType> {
    /// The cases with their names and raw texts, in case order.
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
