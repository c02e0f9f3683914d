#pragma once

/// \file
/// `MemoryBudget`: how much memory a decode has allocated, and its limit.

#include <cstddef>
#include <cstdint>
#include <limits>

namespace VanticRestKit {

/// Counts the memory that a decoded value holds outside its own object: the capacity of its lists, its long strings,
/// and the values that it holds by pointer. The limit protects hosts: an empty element takes two bytes of JSON but may
/// take thousands in memory.
class MemoryBudget {
public:
    /// `limit` is in bytes, and capped at what a process can address, which is 2 GB on 32-bit systems.
    explicit MemoryBudget(std::uint64_t limit) noexcept : limit_(limit < addressable ? limit : addressable) {}

    /// Counts memory that is about to be allocated. Returns false if that exceeds the limit; the decode must then stop.
    bool take(std::uint64_t bytes) noexcept {
        used_ += bytes;
        if (used_ > limit_) wasRefused_ = true;
        return !wasRefused_;
    }

    /// Counts memory without checking the limit, for allocations that the size of the document already bounds.
    void note(std::uint64_t bytes) noexcept { used_ += bytes; }

    /// Frees everything counted since `used()` returned `before`.
    void giveBack(std::uint64_t before) noexcept { used_ = before; }

    /// The number of bytes in use.
    std::uint64_t used() const noexcept { return used_; }
    /// The limit in bytes.
    std::uint64_t limit() const noexcept { return limit_; }
    /// Whether `take` has ever returned false.
    bool wasRefused() const noexcept { return wasRefused_; }
    /// Whether the limit is exceeded.
    bool isExceeded() const noexcept { return wasRefused_ || used_ > limit_; }

private:
    static constexpr std::uint64_t addressable = std::numeric_limits<std::ptrdiff_t>::max();

    std::uint64_t used_ = 0;
    std::uint64_t limit_;
    bool wasRefused_ = false;
};

}  // namespace VanticRestKit
