#pragma once

/// \file
/// `Holdings`: what a process holds.

#include <cstddef>
#include <cstdint>

namespace VanticRestKit::test {

struct Holdings {
    std::size_t descriptors = 0;
    /// Without the threads that the library keeps.
    std::size_t threads = 0;
    /// Of memory that was allocated.
    std::int64_t bytes = 0;
};

Holdings holdingsNow();

/// Waits until no more is held than `wanted`, for up to some seconds, and returns what is held then. The bytes may be
/// more by `tolerance`.
Holdings waitForHoldings(const Holdings& wanted, std::int64_t tolerance);

}  // namespace VanticRestKit::test
