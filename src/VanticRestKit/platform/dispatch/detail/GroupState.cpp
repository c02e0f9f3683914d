#include <VanticRestKit/platform/dispatch/detail/GroupState.h>

#include <VanticRestKit/platform/dispatch/detail/Pool.h>

#include <cstdlib>

namespace VanticRestKit::detail {

void GroupState::enter() {
    const std::lock_guard lock(mutex_);
    ++underWay_;
}

void GroupState::leave() {
    const std::lock_guard lock(mutex_);
    if (underWay_ == 0) std::abort();
    if (--underWay_ > 0) return;
    ++ends_;
    ended_.notify_all();
}

void GroupState::wait() {
    std::unique_lock lock(mutex_);
    if (underWay_ == 0) return;
    const std::uint64_t before = ends_;
    // May start a thread in place of this one: not with the lock held, which `leave` needs.
    lock.unlock();
    const PoolWait replaced;
    lock.lock();
    ++waiters_;
    waitersChanged_.notify_all();
    ended_.wait(lock, [this, before] { return ends_ != before; });
    --waiters_;
    // Released before `replaced` is destroyed, which takes the pool's lock.
    lock.unlock();
}

}  // namespace VanticRestKit::detail
