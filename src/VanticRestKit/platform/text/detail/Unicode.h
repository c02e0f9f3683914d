#pragma once

/// \file
/// Properties of non-ASCII characters.

namespace VanticRestKit::detail {

/// Whether `code` is a letter, mark or number of any script.
bool isAlphanumeric(char32_t code) noexcept;

/// The value of a decimal digit of any script; -1 for any other character.
int decimalDigit(char32_t code) noexcept;

/// The lower case of `code` if it is a single character, else `code` itself. Only U+0130 has a longer one.
char32_t lowerCase(char32_t code) noexcept;

}  // namespace VanticRestKit::detail
