#pragma once

/// \file
/// `ScanBlock.h` without vector instructions. Always compiled: the other variants are tested against it.

#include <VanticRestKit/platform/json/detail/ScanBits.h>

#include <cstring>

namespace VanticRestKit::json::scan::scalar {

inline std::uint32_t stopsOf(const char* at, std::size_t size) noexcept {
    std::uint32_t stops = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(at[i]);
        if (c == '"' || c == '\\' || c < 0x20 || c >= 0x80) stops |= std::uint32_t{1} << i;
    }
    return stops;
}

inline std::uint32_t stops(const char* at) noexcept { return stopsOf(at, bytesOfBlock); }
inline std::uint32_t stopsOfHalf(const char* at) noexcept { return stopsOf(at, bytesOfHalf); }
inline std::size_t firstOfHalf(std::uint32_t stops) noexcept { return first(stops); }

inline std::uint32_t quotes(const char* at) noexcept {
    std::uint32_t quotes = 0;
    for (std::size_t i = 0; i < bytesOfBlock; ++i) quotes |= std::uint32_t{at[i] == '"'} << i;
    return quotes;
}

inline bool startsWith(const char* at, const Prefix& prefix) noexcept {
    return prefix.mask >> bytesOfBlock == 0 && std::memcmp(at, prefix.bytes, prefix.size) == 0;
}

}  // namespace VanticRestKit::json::scan::scalar
