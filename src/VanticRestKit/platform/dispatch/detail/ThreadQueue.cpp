#include <VanticRestKit/platform/dispatch/detail/Bell.h>
#include <VanticRestKit/platform/dispatch/detail/BlockCall.h>
#include <VanticRestKit/platform/dispatch/detail/BlockList.h>
#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/detail/ThreadQueue.h>

#include <mutex>
#include <new>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

class ThreadQueue::ThreadSide {
public:
    explicit ThreadSide(std::string label) noexcept : label_(std::move(label)) {}

    /// Returns whether the thread has to be started.
    bool push(Block block) {
        mark_.renewInChild([this] { renew(); });
        auto node = std::make_unique<BlockNode>(std::move(block));
        std::unique_lock lock(mutex_);
        blocks_.push(std::move(node));
        const bool start = !std::exchange(isStarted_, true);
        wake(lock);
        return start;
    }

    /// Called if the system has no thread: runs the blocks on the calling thread. The next post tries again.
    void runHere() {
        const CurrentQueue scope(this);
        for (;;) {
            BlockList mail;
            {
                const std::lock_guard lock(mutex_);
                isStarted_ = !blocks_.isEmpty();
                if (!isStarted_) return;
                mail.swap(blocks_);
            }
            while (const auto node = mail.pop()) callBlock(node->block, label_);
        }
    }

    void close() {
        if (!mark_.isCurrent()) return;
        std::unique_lock lock(mutex_);
        isClosed_ = true;
        wake(lock);
    }

    void run() {
        const CurrentQueue scope(this);
        BlockList mail;
        while (take(mail)) {
            const HostSignals signals;
            while (const auto node = mail.pop()) callBlock(node->block, label_);
        }
    }

private:
    // The thread does not exist in this process, and may have held the lock.
    void renew() {
        new (&mutex_) std::mutex;
        new (&bell_) Bell;
        blocks_.abandon();
        sleeps_ = isStarted_ = false;
    }

    // A thread that is awake checks for blocks before it sleeps.
    void wake(std::unique_lock<std::mutex>& lock) {
        const bool sleeps = std::exchange(sleeps_, false);
        lock.unlock();
        if (sleeps) bell_.ring();
    }

    /// Waits for blocks and moves all of them to `mail`, which is empty. False if no more can follow.
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

    // The thread may outlive the queue.
    const std::string label_;
    ForkMark mark_;
    std::mutex mutex_;
    Bell bell_;
    BlockList blocks_;
    bool sleeps_ = false;
    bool isStarted_ = false;
    bool isClosed_ = false;
};

ThreadQueue::ThreadQueue(std::string label)
    : Queue(label), side_(std::make_shared<ThreadSide>(std::move(label))) {}

ThreadQueue::~ThreadQueue() { side_->close(); }

void ThreadQueue::post(Block block) {
    if (!side_->push(std::move(block))) return;
    if (!startThread(label(), [side = side_] { side->run(); })) side_->runHere();
}

}  // namespace VanticRestKit::detail
