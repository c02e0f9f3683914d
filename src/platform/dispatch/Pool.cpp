#include <VanticRestKit/platform/dispatch/detail/Pool.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>

#include <algorithm>
#include <thread>

namespace VanticRestKit::detail {

namespace {
thread_local bool inPool = false;
}

Pool::Pool() : limit_(std::clamp<std::size_t>(std::thread::hardware_concurrency(), 2, 4)) {}

Pool& Pool::shared() {
    static Pool& pool = *new Pool;
    return pool;
}

bool Pool::isPoolThread() noexcept { return inPool; }

void Pool::add(std::shared_ptr<Strand> strand) {
    bool wake = false;
    bool start = false;
    {
        const std::lock_guard lock(mutex_);
        ready_.push_back(std::move(strand));
        wake = coming_ < ready_.size() && callSleeper();
        start = wantsThread();
    }
    if (wake) bell_.ring();
    if (start) startThread();
}

void Pool::beginWait() {
    bool start = false;
    {
        const std::lock_guard lock(mutex_);
        ++waiting_;
        start = wantsThread();
    }
    if (start) startThread();
}

void Pool::endWait() {
    const std::lock_guard lock(mutex_);
    --waiting_;
    if (hasSurplus() && callSleeper()) bell_.ring();
}

void Pool::pause() { ++pauses_; }

void Pool::resume() {
    const std::lock_guard lock(mutex_);
    if (--pauses_ > 0) return;
    while (callSleeper()) bell_.ring();
}

std::size_t Pool::threads() const {
    const std::lock_guard lock(mutex_);
    return threads_;
}

bool Pool::wantsThread() {
    if (ready_.size() <= idle_ || threads_ - waiting_ >= limit_) return false;
    ++threads_;
    ++idle_;
    return true;
}

bool Pool::callSleeper() {
    if (sleeping_ == 0) return false;
    --sleeping_;
    ++coming_;
    return true;
}

void Pool::sleep(std::unique_lock<std::mutex>& lock) {
    ++sleeping_;
    lock.unlock();
    bell_.sleep();
    lock.lock();
    --coming_;
}

void Pool::startThread() {
    if (detail::startThread("vrk-pool", [this] { work(); })) return;
    // The system gives no more threads. Those that are there go on, and the next post tries again.
    const std::lock_guard lock(mutex_);
    --threads_;
    --idle_;
}

void Pool::work() {
    inPool = true;
    std::unique_lock lock(mutex_);
    for (;;) {
        while (!hasSurplus() && !canWork()) sleep(lock);
        --idle_;
        if (hasSurplus()) break;
        auto strand = std::move(ready_.front());
        ready_.pop_front();
        lock.unlock();
        const bool hasMore = strand->run();
        if (!hasMore) strand.reset();
        lock.lock();
        if (hasMore) ready_.push_back(std::move(strand));
        ++idle_;
        // This thread takes one of those that are ready; a second one is for somebody else.
        if (coming_ + 1 < ready_.size() && callSleeper()) bell_.ring();
    }
    --threads_;
    // The call that ended this thread may have been meant for one that works.
    if (!ready_.empty() && callSleeper()) bell_.ring();
    threadsChanged_.notify_all();
}

}  // namespace VanticRestKit::detail
