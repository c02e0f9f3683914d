#pragma once

/// \file
/// Values that most routes of the user data service contain: `SourceSystem` and `TrelvoSlug`.

#include <VanticRestKit/platform/json/RawText.h>

#include <string_view>

namespace VanticRestKit {

/// The system that requests user data.
enum class SourceSystem { lumeno };

/// The raw strings of `SourceSystem`.
template <>
struct RawTexts<SourceSystem> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<SourceSystem> cases[] = {
        {SourceSystem::lumeno, "lumeno", "lumeno"},
    };
};

/// A list of the user. Its description is its raw string.
enum class TrelvoSlug { watchlist };

/// The raw strings of `TrelvoSlug`.
template <>
struct RawTexts<TrelvoSlug> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<TrelvoSlug> cases[] = {
        {TrelvoSlug::watchlist, "watchlist", "watchlist"},
    };
};

/// The raw string.
constexpr std::string_view description(TrelvoSlug slug) noexcept { return rawValue(slug); }

}  // namespace VanticRestKit
