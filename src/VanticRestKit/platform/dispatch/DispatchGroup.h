#pragma once

/// \file
/// `DispatchGroup`: waits until everything that entered it has left.

#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

namespace detail {
class GroupState;
struct GroupProbe;
}  // namespace detail

/// Counts what is under way. Copies of the handle are one group; any thread may use it.
///
/// What a thread wrote before its `leave()` is seen by those whose `wait()` it ends. They may destroy their
/// handle at once, also the very object on which another thread is still inside `leave()`.
class VRK_EXPORT DispatchGroup {
public:
    DispatchGroup();

    // Copies only: a handle that was moved from would be no group.
    DispatchGroup(const DispatchGroup&) = default;
    DispatchGroup& operator=(const DispatchGroup&) = default;

    /// One more is under way.
    void enter() const;

    /// One has ended. More leaves than enters end the process.
    void leave() const;

    /// Blocks the calling thread until nothing is under way, without limit; returns at once where nothing is.
    ///
    /// Allowed on any queue: a pool thread that waits is replaced for the time of the wait, so that the other
    /// queues go on. A queue whose own block is to do the leaving waits for ever.
    void wait() const;

private:
    friend struct detail::GroupProbe;

    std::shared_ptr<detail::GroupState> state_;
};

}  // namespace VanticRestKit
