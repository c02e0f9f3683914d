#pragma once

/// \file
/// Definitions shared by all variants of `ScanBlock.h`.

#include <cstddef>
#include <cstdint>

namespace VanticRestKit::json::scan {

/// Most strings end within one block, so the scan loop usually runs once, which predicts well.
inline constexpr std::size_t bytesOfBlock = 32;
inline constexpr std::size_t bytesOfHalf = 16;

/// The index of the lowest set bit; `bits` must not be 0.
inline std::size_t first(std::uint32_t bits) noexcept { return static_cast<unsigned>(__builtin_ctz(bits)); }

/// The first `size` bytes of a block of memory that is aligned to 16 bytes; `mask` has a bit set for each of them. A
/// prefix whose mask has a bit past the end of the block never matches.
struct Prefix {
    const char* bytes;
    std::size_t size;
    std::uint64_t mask;
};

}  // namespace VanticRestKit::json::scan
