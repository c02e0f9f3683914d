#pragma once

/// \file
/// Lets tests pause the pool, and inspect the pool and groups. Not used by the library.

#include <VanticRestKit/platform/dispatch/detail/GroupState.h>
#include <VanticRestKit/platform/dispatch/detail/Pool.h>
#include <VanticRestKit/platform/dispatch/DispatchGroup.h>

#include <chrono>
#include <cstddef>

namespace VanticRestKit::detail {

/// While one exists, no block of a queue on the pool starts. Running blocks continue. Queues with their own thread, and
/// a main queue run by the host, are not paused.
class PoolPause {
public:
    PoolPause() { Pool::shared().pause(); }
    PoolPause(const PoolPause&) = delete;
    PoolPause& operator=(const PoolPause&) = delete;
    ~PoolPause() { Pool::shared().resume(); }
};

/// The state of the pool.
struct PoolProbe {
    /// How many threads work at once if none blocks.
    static std::size_t limit() { return Pool::shared().limit(); }

    /// The number of threads, including those that wait for a group.
    static std::size_t threads() { return Pool::shared().threads(); }

    /// Waits until there are at most `count` threads. Returns false if that takes longer than `deadline`.
    static bool awaitThreads(std::size_t count, std::chrono::milliseconds deadline) {
        Pool& pool = Pool::shared();
        std::unique_lock lock(pool.mutex_);
        return pool.threadsChanged_.wait_for(lock, deadline, [&] { return pool.threads_ <= count; });
    }
};

/// The state of a group.
struct GroupProbe {
    /// The number of threads that are blocked in `wait()`.
    static std::size_t waiters(const DispatchGroup& group) {
        const std::lock_guard lock(group.state_->mutex_);
        return group.state_->waiters_;
    }

    /// Waits until at least `count` threads wait. Returns false if that takes longer than `deadline`.
    static bool awaitWaiters(const DispatchGroup& group, std::size_t count,
                             std::chrono::milliseconds deadline) {
        const auto state = group.state_;
        std::unique_lock lock(state->mutex_);
        return state->waitersChanged_.wait_for(lock, deadline, [&] { return state->waiters_ >= count; });
    }
};

}  // namespace VanticRestKit::detail
