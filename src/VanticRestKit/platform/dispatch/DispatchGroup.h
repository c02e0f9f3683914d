#pragma once

/// \file
/// `DispatchGroup`: waits until every `enter()` has been matched by a `leave()`.

#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

namespace detail {
class GroupState;
struct GroupProbe;
}  // namespace detail

/// Counts operations in progress. Copies of the handle share one group; any thread may use it.
///
/// What a thread wrote before its `leave()` is visible after the `wait()` that it ends. The waiting thread may destroy
/// its handle at once, even the object on which another thread is still inside `leave()`.
class VRK_EXPORT DispatchGroup {
public:
    DispatchGroup();

    // Copies only: a moved-from handle would have no group.
    DispatchGroup(const DispatchGroup&) = default;
    DispatchGroup& operator=(const DispatchGroup&) = default;

    /// Counts one more operation.
    void enter() const;

    /// Counts one operation as finished. Aborts the process if there was no matching `enter()`.
    void leave() const;

    /// Blocks the calling thread, without a time limit, until the count is zero; returns at once if it already is.
    ///
    /// Allowed on any queue: a waiting pool thread is replaced for the duration of the wait, so that other queues
    /// make progress. A block that waits for a `leave()` posted to its own queue waits forever.
    void wait() const;

private:
    friend struct detail::GroupProbe;

    std::shared_ptr<detail::GroupState> state_;
};

}  // namespace VanticRestKit
