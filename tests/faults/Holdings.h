#pragma once

/// \file
/// `Holdings`: the resources that a process uses.

#include <cstddef>
#include <cstdint>

namespace VanticRestKit::test {

struct Holdings {
    std::size_t descriptors = 0;
    /// Without threads that the library keeps for later work.
    std::size_t threads = 0;
    /// Allocated memory.
    std::int64_t bytes = 0;
};

Holdings holdingsNow();

/// Waits a few seconds at most until the process uses no more than `wanted` plus `tolerance` bytes of memory. Returns
/// what it uses then.
Holdings waitForHoldings(const Holdings& wanted, std::int64_t tolerance);

}  // namespace VanticRestKit::test
