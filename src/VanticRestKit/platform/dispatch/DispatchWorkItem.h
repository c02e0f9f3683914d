#pragma once

/// \file
/// `DispatchWorkItem`: a block that can be cancelled as long as it has not started.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <atomic>

namespace VanticRestKit {

/// One piece of work that runs at most once. Held by `std::shared_ptr`, by the queue and by whoever may
/// cancel.
///
/// Cancelled before it starts, it never runs; cancelled later, it goes on undisturbed. The block and all that
/// it holds are dropped when it has run or was cancelled, whatever still refers to the item. All members may
/// be called on any thread.
class VRK_EXPORT DispatchWorkItem {
public:
    /// Nothing runs before the item is given to a queue.
    explicit DispatchWorkItem(Block block) noexcept : block_(std::move(block)) {}
    ~DispatchWorkItem();
    DispatchWorkItem(const DispatchWorkItem&) = delete;
    DispatchWorkItem& operator=(const DispatchWorkItem&) = delete;

    /// Runs the block on the calling thread. Does nothing where it has started before or was cancelled.
    void perform();

    /// Keeps the block from starting and drops it on the calling thread; does nothing to one that has
    /// started.
    void cancel();

    /// Whether `cancel()` was called, be it before the start or after.
    bool isCancelled() const noexcept { return cancelled_.load(std::memory_order_acquire); }

private:
    /// True for the one caller that may take the block.
    bool claim() noexcept { return !claimed_.exchange(true, std::memory_order_acq_rel); }

    std::atomic<bool> cancelled_{false};
    std::atomic<bool> claimed_{false};
    Block block_;
};

}  // namespace VanticRestKit
