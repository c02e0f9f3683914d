#pragma once

/// \file
/// `DispatchWorkItem`: a block that can be cancelled until it starts.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <atomic>

namespace VanticRestKit {

/// A block that runs at most once. Shared by the queue and by callers that may cancel it.
///
/// If cancelled before it starts, it never runs; cancelling it later has no effect. The block and everything that it
/// captures are destroyed when it has run or was cancelled, even if the item is still referenced. All members may be
/// called on any thread.
class VRK_EXPORT DispatchWorkItem {
public:
    /// Nothing runs before the item is given to a queue.
    explicit DispatchWorkItem(Block block) noexcept : block_(std::move(block)) {}
    ~DispatchWorkItem();
    DispatchWorkItem(const DispatchWorkItem&) = delete;
    DispatchWorkItem& operator=(const DispatchWorkItem&) = delete;

    /// Runs the block on the calling thread. Does nothing if it has already started or was cancelled.
    void perform();

    /// Prevents the block from starting and destroys it on the calling thread; no effect if it has started.
    void cancel();

    /// Whether `cancel()` was called, before the start or after it.
    bool isCancelled() const noexcept { return cancelled_.load(std::memory_order_acquire); }

private:
    /// True for the one caller that may take the block.
    bool claim() noexcept { return !claimed_.exchange(true, std::memory_order_acq_rel); }

    std::atomic<bool> cancelled_{false};
    std::atomic<bool> claimed_{false};
    Block block_;
};

}  // namespace VanticRestKit
