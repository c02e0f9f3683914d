#pragma once

/// \file
/// Hexadecimal digits.

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

inline constexpr std::string_view upperHexDigits = "0123456789ABCDEF";
inline constexpr std::string_view lowerHexDigits = "0123456789abcdef";

/// The value of a hexadecimal digit of either case; -1 for any other byte.
inline int hexValue(char digit) noexcept {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

/// Appends `byte` to `text` as two of `digits`.
inline void appendHex(std::string& text, char byte, std::string_view digits) {
    const auto value = static_cast<unsigned char>(byte);
    text += digits[value >> 4];
    text += digits[value & 0x0FU];
}

}  // namespace VanticRestKit::detail
