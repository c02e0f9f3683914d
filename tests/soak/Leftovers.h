#pragma once

/// \file
/// The resources that a process holds: descriptors, threads and memory.

#include <cstddef>

namespace VanticRestKit::test {

struct Holdings {
    std::size_t descriptors = 0;
    /// Without those of the pool that all queues share, which keeps one thread per processor.
    std::size_t threads = 0;
    /// Allocated bytes, without those that the allocator keeps for reuse.
    std::size_t bytes = 0;
};

/// The current resources of this process.
Holdings holdingsNow();

/// The same after the process has become quiet. Waits up to half a minute for things that end by themselves after the
/// last load, such as an abandoned name lookup. If `wanted` is not null, waits until there are no more descriptors and
/// threads than in `wanted`.
Holdings quietHoldings(const Holdings* wanted = nullptr);

}  // namespace VanticRestKit::test
