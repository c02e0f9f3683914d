#pragma once

// Reads JSON tokens in place. Every buffer ends with Data::padding zero bytes that are not part of the document:
// scanning may run into them, and the position is then past `end`.

#include <VanticRestKit/platform/json/detail/ScanBlock.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// The maximum nesting depth of arrays and objects.
inline constexpr std::size_t maxDepth = 512;

inline bool isSpace(char c) noexcept { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

inline const char* skipSpace(const char* at) noexcept {
    // Most documents contain no whitespace.
    if (static_cast<unsigned char>(*at) > ' ') return at;
    while (isSpace(*at)) ++at;
    return at;
}

/// The start of the document's value, after an optional byte-order mark and whitespace.
const char* documentStart(const char* begin, const char* end) noexcept;

/// A string token, and whether its content can be used without unescaping and validation.
struct StringToken {
    const char* inside;  ///< The first byte after the opening quote.
    const char* close;   ///< The closing quote; null if there is none or if a quote is inside a `\u` escape.
    bool isPlain;        ///< Only printable ASCII without escapes: the bytes are the text.
};

/// Scans the rest of a string from `at`, the first byte that is not plain.
StringToken scanUnusualString(const char* inside, const char* at, const char* end) noexcept;

/// The string token whose content begins at `inside` and is plain up to `at`, which is at most `end`.
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

/// The text of a string that is not plain; empty if it has a bad escape, a lone surrogate, a raw control character or
/// invalid UTF-8. The view refers to the document or to `scratch`.
std::optional<std::string_view> unescape(const StringToken& token, std::string& scratch);

/// The end of the number token that begins at `at`. The token is validated only when it is parsed.
inline const char* scanNumber(const char* at) noexcept {
    while ((*at >= '0' && *at <= '9') || *at == '-' || *at == '+' || *at == '.' || *at == 'e' || *at == 'E')
        ++at;
    return at;
}

inline bool startsNumber(char c) noexcept { return c == '-' || (c >= '0' && c <= '9'); }

/// The end of `true`, `false` or `null` at `at`; null if it is none of them.
const char* scanLiteral(const char* at, const char* end) noexcept;

/// The end of the value that begins at `at`, after validating its structure; null if it is malformed or nested deeper
/// than the limit. `depth` is the nesting depth of `at`.
const char* skipValue(const char* at, const char* end, std::size_t depth) noexcept;

}  // namespace VanticRestKit::json
