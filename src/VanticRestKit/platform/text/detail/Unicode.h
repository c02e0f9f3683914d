#pragma once

/// \file
/// What the library knows of characters beyond ASCII.

namespace VanticRestKit::detail {

/// Whether `code` is a letter, a mark or a number of any script.
bool isAlphanumeric(char32_t code) noexcept;

/// The value of a decimal digit of any script, or -1 for another character.
int decimalDigit(char32_t code) noexcept;

/// The lower case of `code` where that is one character, else `code` itself. The only character with a longer
/// one is U+0130.
char32_t lowerCase(char32_t code) noexcept;

}  // namespace VanticRestKit::detail
