#pragma once

/// \file
/// What kind of programme an entity is and how it is presented: `Theme`, `LumenoSubtype` and `ContextualPhrases`.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// How a screen is to be coloured. An entity reads it from a text and says what an unknown text means.
enum class Theme { default_, light };

template <>
struct RawTexts<Theme> {
    static constexpr RawCase<Theme> cases[] = {
        {Theme::default_, "default", "default"},
        {Theme::light, "light", "light"},
    };
};

/// What kind of content an entity is. An entity reads it from a text and says what an unknown text means.
enum class LumenoSubtype { livestream, episode, series, feature, trailer };

template <>
struct RawTexts<LumenoSubtype> {
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
    std::optional<std::vector<std::string>> channel{};
    std::optional<std::vector<std::string>> genre{};
    std::optional<std::vector<std::string>> subGenre{};
    std::optional<std::vector<std::string>> theme{};
    std::optional<std::vector<std::string>> mood{};
    std::optional<std::vector<std::string>> audience{};
    std::optional<std::vector<std::string>> need{};
    std::optional<std::vector<std::string>> other{};

    friend bool operator==(const ContextualPhrases&, const ContextualPhrases&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ContextualPhrases>();

}  // namespace VanticRestKit
