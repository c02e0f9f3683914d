#include <VanticRestKit/Testing/ManualExecutor.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace VanticRestKit::Testing {

struct ManualExecutor::State {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Block> blocks;
    bool isOver = false;

    void post(Block block) {
        // Dropped blocks are destroyed after the lock is released, because their destructors may do anything.
        const std::lock_guard lock(mutex);
        if (isOver) return;
        blocks.push_back(std::move(block));
        changed.notify_all();
    }

    Block next() {
        const std::lock_guard lock(mutex);
        if (blocks.empty()) return {};
        Block block = std::move(blocks.front());
        blocks.pop_front();
        return block;
    }
};

ManualExecutor::ManualExecutor()
    : state_(std::make_shared<State>()),
      queue_(DispatchQueue::over("manual executor",
                                 [state = state_](Block block) { state->post(std::move(block)); })) {}

ManualExecutor::~ManualExecutor() {
    std::deque<Block> dropped;
    const std::lock_guard lock(state_->mutex);
    state_->isOver = true;
    dropped.swap(state_->blocks);
}

const DispatchQueue& ManualExecutor::queue() const noexcept { return queue_; }

std::size_t ManualExecutor::pending() const {
    const std::lock_guard lock(state_->mutex);
    return state_->blocks.size();
}

bool ManualExecutor::runOne() {
    Block block = state_->next();
    if (!block) return false;
    block();
    return true;
}

std::size_t ManualExecutor::runAll() {
    std::size_t count = 0;
    while (runOne()) ++count;
    return count;
}

bool ManualExecutor::runUntil(UniqueFunction<bool()> isDone, std::chrono::duration<double> within) {
    const auto end =
        std::chrono::steady_clock::now() + std::chrono::ceil<std::chrono::steady_clock::duration>(within);
    while (!isDone()) {
        if (runOne()) continue;
        std::unique_lock lock(state_->mutex);
        const auto isThere = [this] { return !state_->blocks.empty(); };
        if (!state_->changed.wait_until(lock, end, isThere)) return false;
    }
    return true;
}

}  // namespace VanticRestKit::Testing
