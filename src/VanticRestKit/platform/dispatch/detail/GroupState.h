#pragma once

/// \file
/// `GroupState`: the shared state of a `DispatchGroup`.

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>

namespace VanticRestKit::detail {

/// The count of a group and its waiters.
class GroupState {
public:
    void enter();
    void leave();
    void wait();

private:
    friend struct GroupProbe;

    std::mutex mutex_;
    std::condition_variable ended_;
    std::condition_variable waitersChanged_;
    std::size_t underWay_ = 0;
    /// How often the count has reached zero: a waiter returns even if the group is entered again before it wakes.
    std::uint64_t ends_ = 0;
    std::size_t waiters_ = 0;
};

}  // namespace VanticRestKit::detail
