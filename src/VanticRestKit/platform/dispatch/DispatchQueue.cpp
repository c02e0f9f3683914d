#include <VanticRestKit/platform/dispatch/detail/HostQueue.h>
#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/detail/ThreadQueue.h>
#include <VanticRestKit/platform/dispatch/detail/Timer.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit {

DispatchQueue::DispatchQueue(std::string label)
    : queue_(std::make_shared<detail::Strand>(std::move(label))) {}

DispatchQueue::DispatchQueue(std::shared_ptr<detail::Queue> queue) noexcept : queue_(std::move(queue)) {}

DispatchQueue DispatchQueue::withOwnThread(std::string label) {
    return DispatchQueue(std::make_shared<detail::ThreadQueue>(std::move(label)));
}

DispatchQueue& DispatchQueue::main() {
    static DispatchQueue& queue =
        *new DispatchQueue(std::shared_ptr<detail::Queue>(detail::MainQueue::shared()));
    return queue;
}

bool DispatchQueue::setMain(UniqueFunction<void(Block)> executor) {
    return detail::MainQueue::shared()->setExecutor(std::move(executor));
}

DispatchQueue DispatchQueue::over(std::string label, UniqueFunction<void(Block)> executor) {
    return DispatchQueue(std::make_shared<detail::HostQueue>(std::move(label), std::move(executor)));
}

void DispatchQueue::setThreadStackSize(std::size_t bytes) noexcept {
    detail::setThreadStackSize(bytes == 0 ? 0 : std::max(bytes, minThreadStackSize));
}

void DispatchQueue::async(Block block) const {
    if (!block) return;
    // The block may run at once and destroy the object that holds this handle.
    const auto queue = queue_;
    queue->post(std::move(block));
}

void DispatchQueue::async(std::shared_ptr<DispatchWorkItem> item) const {
    if (item == nullptr) return;
    async(Block([held = std::move(item)] { held->perform(); }));
}

void DispatchQueue::asyncAfter(std::chrono::duration<double> delay, Block block) const {
    if (!block) return;
    if (delay.count() <= 0) {
        async(std::move(block));
        return;
    }
    detail::Timer::shared().addOrCall(
        delay, [queue = *this, held = std::move(block)]() mutable { queue.async(std::move(held)); });
}

void DispatchQueue::asyncAfter(std::chrono::duration<double> delay,
                               std::shared_ptr<DispatchWorkItem> item) const {
    if (item == nullptr) return;
    asyncAfter(delay, Block([held = std::move(item)] { held->perform(); }));
}

const std::string& DispatchQueue::label() const noexcept { return queue_->label(); }

bool DispatchQueue::isCurrent() const noexcept { return queue_->isCurrent(); }

}  // namespace VanticRestKit
