#pragma once

/// \file
/// `MemoryBudget`: how much memory one decode has allocated, and how much it may.

#include <cstdint>

namespace VanticRestKit {

/// Counts the memory that the value of one decode holds beside itself: what its lists have reserved, its long strings,
/// the values that it holds by pointer. An empty element costs its service two bytes and a host thousands.
class MemoryBudget {
public:
    /// A budget of so many bytes.
    explicit MemoryBudget(std::uint64_t limit) noexcept : limit_(limit) {}

    /// Counts memory that is about to be allocated. False if that is more than is left; the decode must then end.
    bool take(std::uint64_t bytes) noexcept {
        used_ += bytes;
        if (used_ > limit_) wasRefused_ = true;
        return !wasRefused_;
    }

    /// Counts memory that is not worth a check of its own, since it cannot exceed the document.
    void note(std::uint64_t bytes) noexcept { used_ += bytes; }

    /// Counts what was allocated since `used()` was `before` as freed.
    void giveBack(std::uint64_t before) noexcept { used_ = before; }

    /// How many bytes are used.
    std::uint64_t used() const noexcept { return used_; }
    /// How many bytes there are.
    std::uint64_t limit() const noexcept { return limit_; }
    /// Whether `take` has ever said no.
    bool wasRefused() const noexcept { return wasRefused_; }
    /// Whether the finished value is too large.
    bool isExceeded() const noexcept { return wasRefused_ || used_ > limit_; }

private:
    std::uint64_t used_ = 0;
    std::uint64_t limit_;
    bool wasRefused_ = false;
};

}  // namespace VanticRestKit
