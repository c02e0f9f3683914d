#pragma once

// Reading JSON tokens in place. Every buffer ends in Data::padding zero bytes, which are no part of the
// document: scanning may run into them, and whoever does so is behind `end`.

#include <VanticRestKit/platform/json/detail/ScanBlock.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// How deep arrays and objects may lie inside each other.
inline constexpr std::size_t deepest = 512;

inline bool isSpace(char c) noexcept { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

inline const char* skipSpace(const char* at) noexcept {
    // Most documents hold no blanks at all.
    if (static_cast<unsigned char>(*at) > ' ') return at;
    while (isSpace(*at)) ++at;
    return at;
}

/// Where the document's value begins: behind one byte-order mark and blanks.
const char* documentStart(const char* begin, const char* end) noexcept;

/// A string token: its inside, and whether it holds something that must be looked at before it is a text.
struct StringToken {
    const char* inside;  ///< The first byte behind the opening quote.
    const char*
        close;  ///< The closing quote; null if the string is broken: it has none, or a quote in a `\u` escape.
    bool isPlain;  ///< Only printable ASCII and no escapes: the inside is the text.
};

/// The rest of a string from a place where it stopped being plain.
StringToken scanUnusualString(const char* inside, const char* at, const char* end) noexcept;

/// The string token whose inside begins at `inside` and is plain up to `at`, which is within the document or
/// right behind it.
inline StringToken scanString(const char* inside, const char* at, const char* end) noexcept {
    std::uint32_t stops = scan::stops(at);
    while (stops == 0) {
        at += scan::bytesOfBlock;
        if (at >= end) return {inside, nullptr, false};
        stops = scan::stops(at);
    }
    at += scan::first(stops);
    if (*at == '"') return {inside, at, true};
    return scanUnusualString(inside, at, end);
}

/// The string token whose opening quote is at `quote`.
inline StringToken scanString(const char* quote, const char* end) noexcept {
    return scanString(quote + 1, quote + 1, end);
}

/// The text of a string that is not plain, or empty where its inside is broken: a bad escape, a lone
/// surrogate, a raw control character, invalid UTF-8. The view is of the document or of `scratch`.
std::optional<std::string_view> unescape(const StringToken& token, std::string& scratch);

/// Behind the number token that begins at `at`; it is judged only where it is read.
inline const char* scanNumber(const char* at) noexcept {
    while ((*at >= '0' && *at <= '9') || *at == '-' || *at == '+' || *at == '.' || *at == 'e' || *at == 'E')
        ++at;
    return at;
}

inline bool startsNumber(char c) noexcept { return c == '-' || (c >= '0' && c <= '9'); }

/// Behind `true`, `false` or `null` at `at`, or null where there is none of them.
const char* scanLiteral(const char* at, const char* end) noexcept;

/// Behind the value that begins at `at`, its structure validated whatever it holds; null where it is broken
/// or where arrays and objects would lie deeper than the limit. `depth` is how deep `at` lies already.
const char* skipValue(const char* at, const char* end, std::size_t depth) noexcept;

}  // namespace VanticRestKit::json
