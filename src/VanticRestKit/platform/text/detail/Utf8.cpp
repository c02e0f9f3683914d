#include <VanticRestKit/platform/text/detail/Utf8.h>

namespace VanticRestKit::detail {

namespace {

/// The length that a first byte promises and the smallest character that needs as many bytes.
struct Promise {
    std::size_t length;
    char32_t smallest;
    char32_t bits;
};

Promise promised(unsigned char first) noexcept {
    if (first < 0x80) return {1, 0, first};
    if (first < 0xC0) return {0, 0, 0};
    if (first < 0xE0) return {2, 0x80, first & 0x1Fu};
    if (first < 0xF0) return {3, 0x800, first & 0x0Fu};
    if (first < 0xF8) return {4, 0x10000, first & 0x07u};
    return {0, 0, 0};
}

}  // namespace

Utf8Character firstCharacter(std::string_view text) noexcept {
    if (text.empty()) return {};
    const Promise promise = promised(static_cast<unsigned char>(text[0]));
    if (promise.length == 0 || promise.length > text.size()) return {};
    char32_t code = promise.bits;
    for (const char next : text.substr(1, promise.length - 1)) {
        const auto byte = static_cast<unsigned char>(next);
        if ((byte & 0xC0u) != 0x80u) return {};
        code = (code << 6) | (byte & 0x3Fu);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < promise.smallest || code > 0x10FFFF || surrogate) return {};
    return {code, promise.length};
}

void appendUtf8(std::string& text, char32_t code) {
    const auto byte = [&text](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | (code >> 18));
        byte(0x80 | ((code >> 12) & 0x3F));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

}  // namespace VanticRestKit::detail
