#pragma once

/// \file
/// `DispatchQueue`: runs blocks one at a time, in the order in which they were posted.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace VanticRestKit {

class DispatchWorkItem;

namespace detail {
class Queue;
}

/// A serial queue. Copies of the handle refer to one queue; any thread may use it.
///
/// Blocks run in posting order, never two at once, on a small pool of threads that all queues share: a queue is cheap
/// and has no thread of its own. What one block wrote is visible to the next. A block may block, wait on a
/// `DispatchGroup` for any time, post to its own queue, and drop the queue's last handle. While a block waits for a
/// group, another thread takes its place; if blocks block in any other way, the pool adds threads after some
/// milliseconds, up to sixty.
/// A block must not throw: an exception that leaves one ends the process by `std::terminate`, after a line on
/// standard error that names the queue.
/// Posted blocks run even if no handle is left. A block and everything that it captures are destroyed on the queue,
/// right after it has run and before the next one starts. No destructor waits.
///
/// A child made by `fork` may use its copies of queues; blocks that the parent had posted run in the parent only.
///
/// If the system has no thread for a block, the block runs on the posting thread, inside `async`.
///
/// The library's threads block all signals except those for faults. While a block runs, its thread has the signal mask
/// of the thread that first needed it, as a thread of the caller would, so that a process started by a block can be
/// ended by a signal.
class VRK_EXPORT DispatchQueue {
public:
    /// Makes a new queue. `label` is for debugging and need not be unique.
    explicit DispatchQueue(std::string label);

    /// A queue with one thread of its own. The thread starts with the first block and ends when the last handle is
    /// gone and all posted blocks have run.
    static DispatchQueue withOwnThread(std::string label);

    /// The main queue of the process: an ordinary serial queue unless the host sets an executor.
    static DispatchQueue& main();

    /// Has the host run the main queue's blocks, usually on its event loop.
    ///
    /// `executor` is called once for each block posted to the main queue, on the posting thread, and must run the
    /// block that it is given once. The queue stays serial even if the executor runs blocks immediately, on several
    /// threads or out of order: each one that it runs takes the oldest waiting block, after the one now running. If
    /// it destroys one without running it, the oldest waiting block is discarded. `executor` may be called by several
    /// threads at once and lives as long as the process.
    ///
    /// Returns whether it was accepted: only once, only before the first block is posted, and not if empty.
    static bool setMain(UniqueFunction<void(Block)> executor);

    /// A serial queue whose blocks the host runs, for an application with one or more event loops of its own.
    ///
    /// `executor` must not be empty. It is called as `setMain` describes and lives as long as the queue.
    ///
    /// ```cpp
    /// DispatchQueue ui = DispatchQueue::over("ui", [&loop](Block block) { loop.post(std::move(block)); });
    /// ```
    static DispatchQueue over(std::string label, UniqueFunction<void(Block)> executor);

    /// The smallest stack, in bytes, that `setThreadStackSize` sets. It is enough for the library's own code, libcurl
    /// and OpenSSL; blocks and completions of the host may need more.
    static constexpr std::size_t minThreadStackSize = std::size_t{256} * 1024;

    /// Sets the stack size, in bytes, of all threads that the library starts from now on: those of queues, of the timer
    /// and of sessions. Threads that run already keep theirs, so call it before anything else of the library. A size
    /// below `minThreadStackSize` is raised to it. 0, the default, leaves the size to the C library, which for glibc is
    /// the limit of the process (`ulimit -s`), usually 8 MB. Any thread may call.
    ///
    /// Threads on which libcurl looks up names are not the library's and keep the default of the C library.
    static void setThreadStackSize(std::size_t bytes) noexcept;

    // Copies only: a moved-from handle would have no queue.
    DispatchQueue(const DispatchQueue&) = default;
    DispatchQueue& operator=(const DispatchQueue&) = default;

    /// Posts `block` and returns immediately. An empty block is ignored.
    void async(Block block) const;

    /// Posts `item`: the queue calls its `perform()`. Null is ignored.
    void async(std::shared_ptr<DispatchWorkItem> item) const;

    /// Posts `block` after `delay`, measured by the steady clock. A delay of zero or less posts immediately, and so
    /// does any delay if the system has no thread to wait on. An empty block is ignored.
    void asyncAfter(std::chrono::duration<double> delay, Block block) const;

    /// Posts `item` after `delay`. Cancelling the item before it starts destroys its block at once.
    void asyncAfter(std::chrono::duration<double> delay, std::shared_ptr<DispatchWorkItem> item) const;

    /// The label given at construction.
    const std::string& label() const noexcept;

    /// Whether the calling code runs in a block of this queue.
    bool isCurrent() const noexcept;

    /// Whether both handles refer to one queue.
    friend bool operator==(const DispatchQueue& a, const DispatchQueue& b) noexcept {
        return a.queue_ == b.queue_;
    }

private:
    explicit DispatchQueue(std::shared_ptr<detail::Queue> queue) noexcept;

    std::shared_ptr<detail::Queue> queue_;
};

}  // namespace VanticRestKit
