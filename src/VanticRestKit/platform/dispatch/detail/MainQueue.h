#pragma once

/// \file
/// `MainQueue`: the process's main queue.

#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <memory>
#include <mutex>
#include <utility>

namespace VanticRestKit::detail {

/// A strand on the pool, unless the host sets an executor before the first block is posted.
class MainQueue final : public Queue {
public:
    using Queue::Queue;

    /// The main queue of this process.
    static const std::shared_ptr<MainQueue>& shared();

    void post(Block block) override { resolved()->post(std::move(block)); }
    void postDeferrable(Block block) override { resolved()->postDeferrable(std::move(block)); }

    /// Returns whether `executor` was accepted.
    bool setExecutor(UniqueFunction<void(Block)> executor);

protected:
    const void* identity() const noexcept override;

private:
    std::shared_ptr<Queue> resolved();

    mutable std::mutex mutex_;
    /// Null until the first block or an executor decides which kind it is; never changes after that.
    std::shared_ptr<Queue> queue_;
};

}  // namespace VanticRestKit::detail
