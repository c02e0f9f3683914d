#pragma once

/// \file
/// What a process holds: descriptors, threads and memory.

#include <cstddef>

namespace VanticRestKit::test {

struct Holdings {
    std::size_t descriptors = 0;
    /// Without those of the pool that all queues of a process share: it has as many as there are processors, and keeps
    /// them.
    std::size_t threads = 0;
    /// In use, not what the allocator keeps for later.
    std::size_t bytes = 0;
};

/// What this process holds now.
Holdings holdingsNow();

/// The same when it has become quiet: what ends by itself after the last load, such as a look-up that its load gave up,
/// has half a minute for that. If `wanted` is not null, it waits for no more descriptors and threads than those.
Holdings quietHoldings(const Holdings* wanted = nullptr);

}  // namespace VanticRestKit::test
