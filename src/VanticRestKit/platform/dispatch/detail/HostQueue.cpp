#include <VanticRestKit/platform/dispatch/detail/BlockCall.h>
#include <VanticRestKit/platform/dispatch/detail/HostQueue.h>

namespace VanticRestKit::detail {

/// The block given to the host's executor. It counts once, whether it is run or destroyed.
class HostQueue::Turn {
public:
    explicit Turn(std::shared_ptr<HostQueue> queue) noexcept : queue_(std::move(queue)) {}
    Turn(Turn&&) noexcept = default;
    Turn& operator=(Turn&&) = delete;
    ~Turn() {
        if (queue_ != nullptr) queue_->discard();
    }

    void operator()() {
        if (const auto queue = std::exchange(queue_, nullptr)) queue->take();
    }

private:
    std::shared_ptr<HostQueue> queue_;
};

void HostQueue::post(Block block) {
    auto node = std::make_unique<BlockNode>(std::move(block));
    {
        const std::lock_guard lock(mutex_);
        blocks_.push(std::move(node));
    }
    executor_(Turn(shared_from_this()));
}

void HostQueue::take() {
    {
        const std::lock_guard lock(mutex_);
        ++turns_;
        if (std::exchange(isRunning_, true)) return;
    }
    const CurrentQueue scope(this);
    while (const auto node = popForTurn()) callBlock(node->block, label());
}

std::unique_ptr<BlockNode> HostQueue::popForTurn() {
    const std::lock_guard lock(mutex_);
    if (turns_ == 0) {
        isRunning_ = false;
        return nullptr;
    }
    --turns_;
    return blocks_.pop();
}

void HostQueue::discard() {
    std::unique_ptr<BlockNode> node;
    const std::lock_guard lock(mutex_);
    node = blocks_.pop();
}

}  // namespace VanticRestKit::detail
