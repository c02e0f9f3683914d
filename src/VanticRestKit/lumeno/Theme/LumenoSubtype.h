#pragma once

/// \file
/// `LumenoSubtype`: what kind of content an entity is.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

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

}  // namespace VanticRestKit
