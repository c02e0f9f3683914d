#pragma once

/// \file
/// `DispatchQueue`: runs blocks one at a time in the order of their posting.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <memory>
#include <string>

namespace VanticRestKit {

class DispatchWorkItem;

namespace detail {
class Queue;
}

/// A serial queue. Copies of the handle are one queue; any thread may use it.
///
/// Blocks run in the order of their posting, never two at once, on threads of a small pool that all queues
/// share: a queue is light and has no thread of its own. What one block wrote the next one sees. A block may
/// block, wait on a `DispatchGroup` without limit, post to its own queue, and drop the queue's last handle.
/// While blocks wait for a group other threads work in their place; where they block otherwise the pool has
/// more threads after some milliseconds, up to sixty.
/// A block must not throw: an exception that leaves one ends the process by `std::terminate`, after a line on the
/// standard error output that names the queue.
/// Blocks that were posted run also when no handle is left. A block and all that it holds are destroyed on
/// the queue, right after it ran and before the next one starts. No destructor waits for anything.
///
/// A child made by `fork` may use its copies of queues; blocks that the parent had posted run in the parent only.
///
/// If the system gives the process no thread for a block, it runs on the thread that posts it, inside `async`.
///
/// Threads of the library block all signals but those of faults. While a block runs, its thread has the signal mask of
/// the thread that first needed it, as a thread of the caller's own would, so that a process started by a block can be
/// ended by a signal.
class VRK_EXPORT DispatchQueue {
public:
    /// Makes a new queue. `label` is for people; several queues may bear the same.
    explicit DispatchQueue(std::string label);

    /// A queue whose blocks all run on one thread that runs nothing else. The thread starts with the first
    /// block and ends by itself when the last handle is gone and all posted blocks have run.
    static DispatchQueue withOwnThread(std::string label);

    /// The main queue of the process: a serial queue like any other until the host gives its own executor.
    static DispatchQueue& main();

    /// Has the main queue's blocks run by the host, on its user interface's loop as a rule.
    ///
    /// `executor` is called once for each block posted to the main queue, on the thread that posts, and is to
    /// run what it is handed, once. One that runs things at once, or on several threads, or in another order
    /// still gives a serial queue: what it is handed runs the oldest block waiting, after the one now
    /// running. A handed block that is destroyed unrun discards the oldest block waiting. `executor` may be
    /// called by several threads at once and lives as long as the process.
    ///
    /// Returns whether it was accepted: only once, only before the first block was posted, and not if empty.
    static bool setMain(UniqueFunction<void(Block)> executor);

    /// A serial queue whose blocks the host runs, for an application with an event loop of its own or several of them.
    ///
    /// `executor` must not be empty. It is called once for each block posted, on the thread that posts, by several
    /// threads at once too, and is to run what it is handed, once; the rules of `setMain` apply. It lives as long as
    /// the queue.
    ///
    /// ```cpp
    /// DispatchQueue ui = DispatchQueue::over("ui", [&loop](Block block) { loop.post(std::move(block)); });
    /// ```
    static DispatchQueue over(std::string label, UniqueFunction<void(Block)> executor);

    // Copies only: a handle that was moved from would be no queue.
    DispatchQueue(const DispatchQueue&) = default;
    DispatchQueue& operator=(const DispatchQueue&) = default;

    /// Posts `block` and returns at once. An empty block is not posted.
    void async(Block block) const;

    /// Posts `item`: the queue calls its `perform()`. Null is not posted.
    void async(std::shared_ptr<DispatchWorkItem> item) const;

    /// Posts `block` once `delay` has passed, measured by a clock that no change of the date moves. A delay of zero or
    /// less posts at once. An empty block is not posted.
    void asyncAfter(std::chrono::duration<double> delay, Block block) const;

    /// Posts `item` once `delay` has passed. Cancelling the item before it starts drops its block at once.
    void asyncAfter(std::chrono::duration<double> delay, std::shared_ptr<DispatchWorkItem> item) const;

    /// The name given at construction.
    const std::string& label() const noexcept;

    /// Whether the calling code runs in a block of this queue.
    bool isCurrent() const noexcept;

    /// Whether both handles are one queue.
    friend bool operator==(const DispatchQueue& a, const DispatchQueue& b) noexcept {
        return a.queue_ == b.queue_;
    }

private:
    explicit DispatchQueue(std::shared_ptr<detail::Queue> queue) noexcept;

    std::shared_ptr<detail::Queue> queue_;
};

}  // namespace VanticRestKit
