#pragma once

/// \file
/// Validates, reads and writes UTF-8.
///
/// Well-formed as in RFC 3629: no overlong form, no surrogate, nothing above U+10FFFF, nothing truncated.

#include <cstddef>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// A character and its length in bytes. A length of 0 means that there is no well-formed character.
struct UTF8Character {
    char32_t code{};
    std::size_t length{};
};

/// The number of bytes of the well-formed character at the beginning of `size` bytes at `at`; 0 if there is none.
inline std::size_t characterLength(const char* at, std::size_t size) noexcept {
    const auto byte = [at](std::size_t i) { return static_cast<unsigned char>(at[i]); };
    if (size == 0) return 0;
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > size) return 0;
    // Overlong forms, surrogates and codes above U+10FFFF differ from well-formed characters in the second byte.
    const unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < lowest || byte(1) > highest) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return 0;
    }
    return length;
}

/// Whether all of `bytes` is well-formed.
bool isUTF8(std::string_view bytes) noexcept;

/// The first character of `text`.
UTF8Character firstCharacter(std::string_view text) noexcept;

/// Appends `code` to `text`. It must be at most U+10FFFF and no surrogate.
inline void appendUTF8(std::string& text, char32_t code) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

}  // namespace VanticRestKit::detail
