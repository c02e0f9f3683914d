#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/detail/ThreadQueue.h>

#include <condition_variable>
#include <mutex>

namespace VanticRestKit::detail {

class ThreadQueue::ThreadSide {
public:
    /// Returns whether the thread has to be started.
    bool push(Block block) {
        auto node = std::make_unique<BlockNode>(std::move(block));
        bool start = false;
        {
            const std::lock_guard lock(mutex_);
            blocks_.push(std::move(node));
            start = !std::exchange(isStarted_, true);
        }
        wake_.notify_one();
        return start;
    }

    /// The system gave no thread; the next post tries again.
    void notStarted() {
        const std::lock_guard lock(mutex_);
        isStarted_ = false;
    }

    void close() {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
        wake_.notify_one();
    }

    void run() {
        const CurrentQueue scope(this);
        while (const auto node = next()) node->block();
    }

private:
    std::unique_ptr<BlockNode> next() {
        std::unique_lock lock(mutex_);
        wake_.wait(lock, [this] { return isClosed_ || !blocks_.isEmpty(); });
        return blocks_.pop();
    }

    std::mutex mutex_;
    std::condition_variable wake_;
    BlockList blocks_;
    bool isStarted_ = false;
    bool isClosed_ = false;
};

ThreadQueue::ThreadQueue(std::string label)
    : Queue(std::move(label)), side_(std::make_shared<ThreadSide>()) {}

ThreadQueue::~ThreadQueue() { side_->close(); }

void ThreadQueue::post(Block block) {
    if (!side_->push(std::move(block))) return;
    if (!startThread(label(), [side = side_] { side->run(); })) side_->notStarted();
}

}  // namespace VanticRestKit::detail
