#pragma once

/// \file
/// What tests hold back and look at. Nothing in the library uses it.

#include <VanticRestKit/platform/dispatch/detail/GroupState.h>
#include <VanticRestKit/platform/dispatch/detail/Pool.h>
#include <VanticRestKit/platform/dispatch/DispatchGroup.h>

#include <chrono>
#include <cstddef>

namespace VanticRestKit::detail {

/// While one lives, no block of a queue on the pool starts; blocks that run already go on. Queues with a
/// thread of their own and a main queue run by the host are not held back.
class PoolPause {
public:
    PoolPause() { Pool::shared().pause(); }
    PoolPause(const PoolPause&) = delete;
    PoolPause& operator=(const PoolPause&) = delete;
    ~PoolPause() { Pool::shared().resume(); }
};

/// The pool, seen from outside.
struct PoolProbe {
    /// How many threads the pool lets work at a time.
    static std::size_t limit() { return Pool::shared().limit(); }

    /// How many threads it has now, those included that wait for a group.
    static std::size_t threads() { return Pool::shared().threads(); }

    /// Waits until it has at most `count` threads; false when `deadline` passed before.
    static bool awaitThreads(std::size_t count, std::chrono::milliseconds deadline) {
        Pool& pool = Pool::shared();
        std::unique_lock lock(pool.mutex_);
        return pool.threadsChanged_.wait_for(lock, deadline, [&] { return pool.threads_ <= count; });
    }
};

/// A group, seen from outside.
struct GroupProbe {
    /// How many threads are inside `wait()` and will stay there until the group is left.
    static std::size_t waiters(const DispatchGroup& group) {
        const std::lock_guard lock(group.state_->mutex_);
        return group.state_->waiters_;
    }

    /// Waits until at least `count` threads wait; false when `deadline` passed before.
    static bool awaitWaiters(const DispatchGroup& group, std::size_t count,
                             std::chrono::milliseconds deadline) {
        const auto state = group.state_;
        std::unique_lock lock(state->mutex_);
        return state->waitersChanged_.wait_for(lock, deadline, [&] { return state->waiters_ >= count; });
    }
};

}  // namespace VanticRestKit::detail
