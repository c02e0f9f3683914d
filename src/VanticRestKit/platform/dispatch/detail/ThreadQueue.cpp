#include <VanticRestKit/platform/dispatch/detail/Bell.h>
#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/detail/ThreadQueue.h>

#include <mutex>
#include <utility>

namespace VanticRestKit::detail {

class ThreadQueue::ThreadSide {
public:
    /// Returns whether the thread has to be started.
    bool push(Block block) {
        auto node = std::make_unique<BlockNode>(std::move(block));
        std::unique_lock lock(mutex_);
        blocks_.push(std::move(node));
        const bool start = !std::exchange(isStarted_, true);
        wake(lock);
        return start;
    }

    /// The system gave no thread; the next post tries again.
    void notStarted() {
        const std::lock_guard lock(mutex_);
        isStarted_ = false;
    }

    void close() {
        std::unique_lock lock(mutex_);
        isClosed_ = true;
        wake(lock);
    }

    void run() {
        const CurrentQueue scope(this);
        BlockList mail;
        while (take(mail)) {
            const HostSignals signals;
            while (const auto node = mail.pop()) node->block();
        }
    }

private:
    // A thread that is awake looks here before it sleeps.
    void wake(std::unique_lock<std::mutex>& lock) {
        const bool sleeps = std::exchange(sleeps_, false);
        lock.unlock();
        if (sleeps) bell_.ring();
    }

    /// Waits for blocks and takes all there are into `mail`, which is empty. False when no more follow.
    bool take(BlockList& mail) {
        std::unique_lock lock(mutex_);
        while (blocks_.isEmpty()) {
            if (isClosed_) return false;
            sleeps_ = true;
            lock.unlock();
            bell_.sleep();
            lock.lock();
        }
        mail.swap(blocks_);
        return true;
    }

    std::mutex mutex_;
    Bell bell_;
    BlockList blocks_;
    bool sleeps_ = false;
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
