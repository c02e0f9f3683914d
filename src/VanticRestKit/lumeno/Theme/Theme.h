#pragma once

/// \file
/// What kind of programme an entity is and how it is presented: `Theme`, `LumenoSubtype` and `ContextualPhrases`.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// How a screen is to be coloured. An entity reads it from a text and says what an unknown text means.
enum class Theme { default_, light };

/// The raw texts of `Theme`.
template <>
struct RawTexts<Theme> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<Theme> cases[] = {
        {Theme::default_, "default", "default"},
        {Theme::light, "light", "light"},
    };
};

/// What kind of content an entity is. An entity reads it from a text and says what an unknown text means.
enum class LumenoSubtype { livestream, episode, series, feature, trailer };

/// The raw texts of `LumenoSubtype`.
template <>
struct RawTexts<LumenoSubtype> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<LumenoSubtype> cases[] = {
        {LumenoSubtype::livestream, "livestream", "livestream"},
        {LumenoSubtype::episode, "episode", "episode"},
        {LumenoSubtype::series, "series", "series"},
        {LumenoSubtype::feature, "feature", "feature"},
        {LumenoSubtype::trailer, "trailer", "trailer"},
    };
};

/// Words that describe a programme, grouped by kind. A group that the service does not send is empty, which is
/// not the same as a group without words. A group of another type fails the decoding.
struct ContextualPhrases {
    /// Key `channel`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> channel{};
    /// Key `genre`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> genre{};
    /// Key `subGenre`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> subGenre{};
    /// Key `theme`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> theme{};
    /// Key `mood`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> mood{};
    /// Key `audience`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> audience{};
    /// Key `need`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> need{};
    /// Key `other`; empty if absent or null; another type fails the decoding.
    std::optional<std::vector<std::string>> other{};

    friend bool operator==(const ContextualPhrases&, const ContextualPhrases&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ContextualPhrases>();

}  // namespace VanticRestKit
