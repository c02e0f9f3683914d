#pragma once

/// \file
/// `ScanBlock.h` with SSE2, which every x86-64 processor has.

#include <VanticRestKit/platform/json/detail/ScanBits.h>

#include <emmintrin.h>

namespace VanticRestKit::json::scan::sse2 {

/// The highest bits of the bytes of the two halves of a block.
inline std::uint32_t bits(__m128i low, __m128i high) noexcept {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(low)) |
           static_cast<std::uint32_t>(_mm_movemask_epi8(high)) << 16;
}

inline __m128i loaded(const char* at) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

/// Sets the highest bit of each byte that is a quote, a backslash, a control character or not ASCII.
inline __m128i stopBytes(const char* at) noexcept {
    const __m128i bytes = loaded(at);
    const __m128i escape = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
    // Flipping this bit moves the quote next to the control characters, which stay below it. Bytes that are not ASCII
    // are negative as signed numbers and stay negative, because the subtraction saturates.
    const __m128i changed = _mm_xor_si128(bytes, _mm_set1_epi8('"' ^ ' '));
    return _mm_or_si128(escape, _mm_subs_epi8(changed, _mm_set1_epi8(' ' + 1)));
}

inline __m128i quoteBytes(const char* at) noexcept { return _mm_cmpeq_epi8(loaded(at), _mm_set1_epi8('"')); }

inline std::uint32_t stops(const char* at) noexcept {
    return bits(stopBytes(at), stopBytes(at + bytesOfHalf));
}
inline std::uint32_t stopsOfHalf(const char* at) noexcept {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(stopBytes(at)));
}
inline std::size_t firstOfHalf(std::uint32_t stops) noexcept { return first(stops); }

inline std::uint32_t quotes(const char* at) noexcept {
    return bits(quoteBytes(at), quoteBytes(at + bytesOfHalf));
}

inline bool startsWith(const char* at, const Prefix& prefix) noexcept {
    const auto equal = [&](std::size_t from) {
        return _mm_cmpeq_epi8(_mm_load_si128(reinterpret_cast<const __m128i*>(prefix.bytes + from)),
                              loaded(at + from));
    };
    return (prefix.mask & ~std::uint64_t{bits(equal(0), equal(bytesOfHalf))}) == 0;
}

}  // namespace VanticRestKit::json::scan::sse2
