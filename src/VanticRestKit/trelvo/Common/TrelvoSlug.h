#pragma once

/// \file
/// `TrelvoSlug`: which list of a user is meant.

#include <VanticRestKit/platform/json/RawText.h>

#include <string_view>

namespace VanticRestKit {

/// Which list of a user is meant. Its description is its raw text.
enum class TrelvoSlug { watchlist };

template <>
struct RawTexts<TrelvoSlug> {
    static constexpr RawCase<TrelvoSlug> cases[] = {
        {TrelvoSlug::watchlist, "watchlist", "watchlist"},
    };
};

/// The raw text.
constexpr std::string_view description(TrelvoSlug slug) noexcept { return rawValue(slug); }

}  // namespace VanticRestKit
