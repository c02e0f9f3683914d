#pragma once

// Reading JSON tokens in place. Every buffer ends in Data::padding zero bytes, which are no part of the
// document: scanning may run into them, and whoever does so is behind `end`.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

namespace scan {

/// Most texts end within one block, and a loop that runs once is one that is predicted well.
inline constexpr std::size_t blockSize = 32;
inline constexpr std::size_t halfBlock = 16;

#if defined(__SSE2__)
/// The highest bit of each byte of two halves of a block.
inline std::uint32_t bits(__m128i low, __m128i high) noexcept {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(low)) |
           static_cast<std::uint32_t>(_mm_movemask_epi8(high)) << 16;
}

/// The highest bit of each byte that is a quote, a backslash, a control character or beyond ASCII.
inline __m128i stopBytes(const char* at) noexcept {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i escape = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
    // Changing this bit puts the quote next to the control characters and leaves those among themselves. What
    // lies beyond ASCII is below them all, and stays there, since the subtraction stops at the least number.
    const __m128i changed = _mm_xor_si128(bytes, _mm_set1_epi8('"' ^ ' '));
    return _mm_or_si128(escape, _mm_subs_epi8(changed, _mm_set1_epi8(' ' + 1)));
}

inline __m128i quoteBytes(const char* at) noexcept {
    return _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)), _mm_set1_epi8('"'));
}

/// A bit for each of the bytes of a block that are equal; `aligned` lies at a multiple of 16 bytes.
inline std::uint32_t equalBytes(const char* aligned, const char* at) noexcept {
    const auto equal = [&](std::size_t from) {
        return _mm_cmpeq_epi8(_mm_load_si128(reinterpret_cast<const __m128i*>(aligned + from)),
                              _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + from)));
    };
    return bits(equal(0), equal(16));
}
#endif

/// Where the lowest of the bits is; there is one.
inline std::size_t first(std::uint32_t bits) noexcept { return static_cast<unsigned>(__builtin_ctz(bits)); }

/// A bit for each of the first `size` bytes at `at` that is a quote, a backslash, a control character or
/// beyond ASCII.
inline std::uint32_t portableStops(const char* at, unsigned size) noexcept {
    std::uint32_t stop = 0;
    for (unsigned i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(at[i]);
        if (c == '"' || c == '\\' || c < 0x20 || c >= 0x80) stop |= std::uint32_t{1} << i;
    }
    return stop;
}

/// The same for a block, or for half of one.
inline std::uint32_t stops(const char* at) noexcept {
#if defined(__SSE2__)
    return bits(stopBytes(at), stopBytes(at + halfBlock));
#else
    return portableStops(at, blockSize);
#endif
}
inline std::uint32_t stopsOfHalf(const char* at) noexcept {
#if defined(__SSE2__)
    return static_cast<std::uint32_t>(_mm_movemask_epi8(stopBytes(at)));
#else
    return portableStops(at, halfBlock);
#endif
}

/// A bit for each quote of the block at `at`.
inline std::uint32_t quotes(const char* at) noexcept {
#if defined(__SSE2__)
    return bits(quoteBytes(at), quoteBytes(at + 16));
#else
    std::uint32_t quotes = 0;
    for (unsigned i = 0; i < blockSize; ++i) quotes |= std::uint32_t{at[i] == '"'} << i;
    return quotes;
#endif
}

}  // namespace scan

/// The rest of a string from a place where it stopped being plain.
StringToken scanUnusualString(const char* inside, const char* at, const char* end) noexcept;

/// The string token whose inside begins at `inside` and is plain up to `at`, which is within the document or
/// right behind it.
inline StringToken scanString(const char* inside, const char* at, const char* end) noexcept {
    std::uint32_t stops = scan::stops(at);
    while (stops == 0) {
        at += scan::blockSize;
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
