#pragma once

/// \file
/// `MainQueue`: a queue that decides at its first block who runs it.

#include <VanticRestKit/platform/dispatch/detail/Queue.h>

#include <memory>
#include <mutex>
#include <utility>

namespace VanticRestKit::detail {

/// A strand on the pool, unless the host has given its executor before the first block came.
class MainQueue final : public Queue {
public:
    using Queue::Queue;

    /// The one of this process.
    static const std::shared_ptr<MainQueue>& shared();

    void post(Block block) override { decided()->post(std::move(block)); }
    void postUnhurried(Block block) override { decided()->postUnhurried(std::move(block)); }

    /// Returns whether `executor` was accepted.
    bool setExecutor(UniqueFunction<void(Block)> executor);

protected:
    const void* identity() const noexcept override;

private:
    std::shared_ptr<Queue> decided();

    mutable std::mutex mutex_;
    /// Null until decided, then the same for good.
    std::shared_ptr<Queue> queue_;
};

}  // namespace VanticRestKit::detail
