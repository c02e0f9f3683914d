#pragma once

/// \file
/// What most routes of the user data service say of a request: `SourceSystem` and `TrelvoSlug`.

#include <VanticRestKit/platform/json/RawText.h>

#include <string_view>

namespace VanticRestKit {

/// Which system asks for user data.
enum class SourceSystem { lumeno };

/// The raw texts of `SourceSystem`.
template <>
struct RawTexts<SourceSystem> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<SourceSystem> cases[] = {
        {SourceSystem::lumeno, "lumeno", "lumeno"},
    };
};

/// Which list of a user is meant. Its description is its raw text.
enum class TrelvoSlug { watchlist };

/// The raw texts of `TrelvoSlug`.
template <>
struct RawTexts<TrelvoSlug> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<TrelvoSlug> cases[] = {
        {TrelvoSlug::watchlist, "watchlist", "watchlist"},
    };
};

/// The raw text.
constexpr std::string_view description(TrelvoSlug slug) noexcept { return rawValue(slug); }

}  // namespace VanticRestKit
