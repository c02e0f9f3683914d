#pragma once

/// \file
/// The kind and presentation of an entity: `Theme`, `LumenoSubtype` and `ContextualPhrases`.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// The colour theme of a screen. The entity that contains it defines how an unknown string is treated.
enum class Theme { default_, light };

/// The raw strings of `Theme`.
template <>
struct RawTexts<Theme> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<Theme> cases[] = {
        {Theme::default_, "default", "default"},
        {Theme::light, "light", "light"},
    };
};

/// The kind of content. The entity that contains it defines how an unknown string is treated.
enum class LumenoSubtype { livestream, episode, series, feature, trailer };

/// The raw strings of `LumenoSubtype`.
template <>
struct RawTexts<LumenoSubtype> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<LumenoSubtype> cases[] = {
        {LumenoSubtype::livestream, "livestream", "livestream"},
        {LumenoSubtype::episode, "episode", "episode"},
        {LumenoSubtype::series, "series", "series"},
        {LumenoSubtype::feature, "feature", "feature"},
        {LumenoSubtype::trailer, "trailer", "trailer"},
    };
};

/// Words that describe a programme, in groups. A group that the service does not send is empty, which is different from
/// an empty list. Decoding fails if a group is of another type.
struct ContextualPhrases {
    /// Key `channel`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> channel{};
    /// Key `genre`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> genre{};
    /// Key `subGenre`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> subGenre{};
    /// Key `theme`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> theme{};
    /// Key `mood`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> mood{};
    /// Key `audience`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> audience{};
    /// Key `need`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> need{};
    /// Key `other`; empty if absent or null; decoding fails for another type.
    std::optional<std::vector<std::string>> other{};

    friend bool operator==(const ContextualPhrases&, const ContextualPhrases&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ContextualPhrases>();

}  // namespace VanticRestKit
