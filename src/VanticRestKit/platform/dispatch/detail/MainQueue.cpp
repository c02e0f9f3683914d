#include <VanticRestKit/platform/dispatch/detail/HostQueue.h>
#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>

namespace VanticRestKit::detail {

const std::shared_ptr<MainQueue>& MainQueue::shared() {
    static const auto& queue = *new std::shared_ptr<MainQueue>(std::make_shared<MainQueue>("main"));
    return queue;
}

std::shared_ptr<Queue> MainQueue::resolved() {
    const std::lock_guard lock(mutex_);
    if (queue_ == nullptr) queue_ = std::make_shared<Strand>(label());
    return queue_;
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
    // Either kind identifies itself by its own address while it runs blocks.
    return queue_ != nullptr ? static_cast<const void*>(queue_.get()) : this;
}

}  // namespace VanticRestKit::detail
