#pragma once

/// \file
/// `ScanBlock.h` with NEON, which every 64-bit ARM processor has, and most 32-bit ones (-mfpu=neon).

#include <VanticRestKit/platform/json/detail/ScanBits.h>

#include <arm_neon.h>

namespace VanticRestKit::json::scan::neon {

/// Sums of adjacent pairs of bytes, of `low` and then of `high`.
inline uint8x16_t addedPairs(uint8x16_t low, uint8x16_t high) noexcept {
#if defined(__aarch64__)
    return vpaddq_u8(low, high);
#else
    return vcombine_u8(vpadd_u8(vget_low_u8(low), vget_high_u8(low)),
                       vpadd_u8(vget_low_u8(high), vget_high_u8(high)));
#endif
}

/// One bit for each byte of the two halves of a block; each byte must be 0 or 255. NEON has no instruction for this:
/// each byte is masked to the bit of its position among eight, and three pairwise additions combine the eight.
inline std::uint32_t bits(uint8x16_t low, uint8x16_t high) noexcept {
    const uint8x16_t places = vreinterpretq_u8_u64(vdupq_n_u64(0x8040'2010'0804'0201));
    const uint8x16_t pairs = addedPairs(vandq_u8(low, places), vandq_u8(high, places));
    const uint8x16_t fours = addedPairs(pairs, pairs);
    const uint8x16_t eights = addedPairs(fours, fours);
    return vgetq_lane_u32(vreinterpretq_u32_u8(eights), 0);
}

inline uint8x16_t loaded(const char* at) noexcept {
    return vld1q_u8(reinterpret_cast<const std::uint8_t*>(at));
}

/// 255 for each byte that is a quote, a backslash, a control character or not ASCII.
inline uint8x16_t stopBytes(const char* at) noexcept {
    const uint8x16_t bytes = loaded(at);
    const uint8x16_t escape = vceqq_u8(bytes, vdupq_n_u8('\\'));
    // Flipping this bit moves the quote next to the control characters, which stay below it. Bytes that are not ASCII
    // are negative as signed numbers.
    const uint8x16_t changed = veorq_u8(bytes, vdupq_n_u8('"' ^ ' '));
    return vorrq_u8(escape, vcltq_s8(vreinterpretq_s8_u8(changed), vdupq_n_s8(' ' + 1)));
}

inline uint8x16_t quoteBytes(const char* at) noexcept { return vceqq_u8(loaded(at), vdupq_n_u8('"')); }

inline std::uint32_t stops(const char* at) noexcept {
    return bits(stopBytes(at), stopBytes(at + bytesOfHalf));
}

/// Four bits for each byte: a single instruction produces them.
inline std::uint64_t stopsOfHalf(const char* at) noexcept {
    const uint8x8_t nibbles = vshrn_n_u16(vreinterpretq_u16_u8(stopBytes(at)), 4);
    return vget_lane_u64(vreinterpret_u64_u8(nibbles), 0);
}
inline std::size_t firstOfHalf(std::uint64_t stops) noexcept {
    return static_cast<unsigned>(__builtin_ctzll(stops)) / 4;
}

inline std::uint32_t quotes(const char* at) noexcept {
    return bits(quoteBytes(at), quoteBytes(at + bytesOfHalf));
}

inline bool startsWith(const char* at, const Prefix& prefix) noexcept {
    const auto equal = [&](std::size_t from) {
        return vceqq_u8(loaded(prefix.bytes + from), loaded(at + from));
    };
    return (prefix.mask & ~std::uint64_t{bits(equal(0), equal(bytesOfHalf))}) == 0;
}

}  // namespace VanticRestKit::json::scan::neon
