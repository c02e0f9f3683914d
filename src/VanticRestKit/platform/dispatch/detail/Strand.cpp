#include <VanticRestKit/platform/dispatch/detail/BlockCall.h>
#include <VanticRestKit/platform/dispatch/detail/Pool.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>

#include <new>

namespace VanticRestKit::detail {

void Strand::add(Block block, bool isDeferrable) {
    auto node = std::make_unique<BlockNode>(std::move(block));
    // In a forked child the pool that had scheduled this strand is gone, and one of its threads may hold the lock.
    mark_.renewInChild([this] {
        new (&mutex_) std::mutex;
        blocks_.abandon();
        isScheduled_ = false;
        deferred_ = 0;
    });
    {
        const std::lock_guard lock(mutex_);
        blocks_.push(std::move(node));
        if (isScheduled_) return;
        if (isDeferrable && ++deferred_ < maxDeferrable) return;
        deferred_ = 0;
        isScheduled_ = true;
    }
    Pool::shared().add(shared_from_this());
}

bool Strand::run() {
    const CurrentQueue scope(this);
    for (int count = 0; count < blocksPerTurn; ++count) {
        std::unique_ptr<BlockNode> node;
        {
            const std::lock_guard lock(mutex_);
            // Checked under the lock, so that no block posted after the pause began can run.
            if (Pool::shared().isPaused()) return true;
            node = blocks_.pop();
            if (node == nullptr) {
                isScheduled_ = false;
                return false;
            }
        }
        callBlock(node->block, label());
    }
    return true;
}

}  // namespace VanticRestKit::detail
