#pragma once

/// \file
/// What all forms of `ScanBlock.h` share.

#include <cstddef>
#include <cstdint>

namespace VanticRestKit::json::scan {

/// Most strings end within one block, and a loop that runs once is one that is predicted well.
inline constexpr std::size_t bytesOfBlock = 32;
inline constexpr std::size_t bytesOfHalf = 16;

/// The index of the lowest bit; there is one.
inline std::size_t first(std::uint32_t bits) noexcept { return static_cast<unsigned>(__builtin_ctz(bits)); }

/// The first bytes of a block of memory that is aligned to 16 bytes: `size` of them, with their bits set in `mask`. A
/// mask with a bit beyond the block stands for a prefix that no bytes start with.
struct Prefix {
    const char* bytes;
    std::size_t size;
    std::uint64_t mask;
};

}  // namespace VanticRestKit::json::scan
