#pragma once

/// \file
/// Characters out of UTF-8 and back.

#include <cstddef>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// A character and how many bytes it took. A length of 0 means that no well-formed character stands there.
struct Utf8Character {
    char32_t code{};
    std::size_t length{};
};

/// The character at the beginning of `text`. Overlong forms, surrogates and what lies beyond U+10FFFF are not
/// well-formed, and neither is a character that is cut off.
Utf8Character firstCharacter(std::string_view text) noexcept;

/// Appends `code`, a character and no surrogate, to `text`.
void appendUtf8(std::string& text, char32_t code);

}  // namespace VanticRestKit::detail
