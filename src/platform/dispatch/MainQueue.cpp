#include <VanticRestKit/platform/dispatch/detail/HostQueue.h>
#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>

namespace VanticRestKit::detail {

void MainQueue::post(Block block) {
    std::shared_ptr<Queue> queue;
    {
        const std::lock_guard lock(mutex_);
        if (queue_ == nullptr) queue_ = std::make_shared<Strand>(label());
        queue = queue_;
    }
    queue->post(std::move(block));
}

bool MainQueue::setExecutor(UniqueFunction<void(Block)> executor) {
    if (!executor) return false;
    const std::lock_guard lock(mutex_);
    if (queue_ != nullptr) return false;
    queue_ = std::make_shared<HostQueue>(label(), std::move(executor));
    return true;
}

const void* MainQueue::identity() const noexcept {
    const std::lock_guard lock(mutex_);
    // Both kinds run their blocks under their own address.
    return queue_ != nullptr ? static_cast<const void*>(queue_.get()) : this;
}

}  // namespace VanticRestKit::detail
