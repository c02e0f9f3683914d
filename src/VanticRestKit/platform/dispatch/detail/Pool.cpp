#include <VanticRestKit/platform/dispatch/detail/Pool.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>

#include <algorithm>
#include <chrono>
#include <new>
#include <thread>
#include <utility>

namespace VanticRestKit::detail {

namespace {
thread_local bool inPool = false;

/// How long no strand is taken before another thread is worth its cost.
constexpr std::chrono::milliseconds patience{20};
}  // namespace

Pool::Pool() : limit_(std::clamp<std::size_t>(std::thread::hardware_concurrency(), 2, 4)) {}

Pool& Pool::shared() {
    static Pool& pool = *new Pool;
    // A child of fork has none of the threads, and begins with an empty pool in the place of the old one.
    pool.mark_.renewInChild([] { new (&pool) Pool; });
    return pool;
}

bool Pool::isPoolThread() noexcept { return inPool; }

void Pool::add(std::shared_ptr<Strand> strand) {
    bool wake = false;
    bool start = false;
    bool watch = false;
    {
        const std::lock_guard lock(mutex_);
        ready_.push_back(std::move(strand));
        wake = coming_ < ready_.size() && callSleeper();
        start = wantsThread();
        watch = wantsWatch();
    }
    if (wake) bell_.ring();
    if (start) startThread();
    if (watch) callWatch();
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
    if (ready_.size() <= idle_ || threads_ - waiting_ >= allowed()) return false;
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

bool Pool::run(std::shared_ptr<Strand>& strand) {
    const HostSignals signals;
    const bool hasMore = strand->run();
    if (!hasMore) strand.reset();
    return hasMore;
}

void Pool::startThread() {
    if (detail::startThread("vrk-pool", [this] { work(); })) return;
    // The system gives no more threads. Those that are there go on, and the next post tries again.
    {
        const std::lock_guard lock(mutex_);
        --threads_;
        --idle_;
    }
    runHere();
}

void Pool::runHere() {
    std::unique_lock lock(mutex_);
    while (threads_ == waiting_ && canWork()) {
        auto strand = std::move(ready_.front());
        ready_.pop_front();
        ++taken_;
        lock.unlock();
        const bool hasMore = run(strand);
        lock.lock();
        if (hasMore) ready_.push_back(std::move(strand));
    }
}

void Pool::work() {
    inPool = true;
    std::unique_lock lock(mutex_);
    for (;;) {
        while (!hasSurplus() && !canWork()) sleep(lock);
        const bool ends = hasSurplus();
        --idle_;
        if (ends) break;
        auto strand = std::move(ready_.front());
        ready_.pop_front();
        ++taken_;
        const bool watch = wantsWatch();
        lock.unlock();
        if (watch) callWatch();
        const bool hasMore = run(strand);
        lock.lock();
        if (hasMore) ready_.push_back(std::move(strand));
        ++idle_;
        // This thread takes one of those that are ready; a second one is for somebody else.
        if (coming_ + 1 < ready_.size() && callSleeper()) bell_.ring();
    }
    // Not one too many for the moment, but one that is not needed any more.
    if (threads_ - waiting_ <= allowed()) --spares_;
    --threads_;
    // The call that ended this thread may have been meant for one that works.
    if (!ready_.empty() && callSleeper()) bell_.ring();
    const bool watch = wantsWatch();
    threadsChanged_.notify_all();
    lock.unlock();
    if (watch) callWatch();
}

bool Pool::wantsWatch() { return isCrowded() && !std::exchange(isWatched_, true); }

void Pool::callWatch() {
    {
        const std::lock_guard lock(mutex_);
        if (std::exchange(hasWatch_, true)) {
            watchBell_.ring();
            return;
        }
    }
    if (detail::startThread("vrk-pool-watch", [this] { watch(); })) return;
    const std::lock_guard lock(mutex_);
    hasWatch_ = false;
    isWatched_ = false;
}

void Pool::watch() {
    std::unique_lock lock(mutex_);
    for (;;) {
        const std::uint64_t before = taken_;
        lock.unlock();
        std::this_thread::sleep_for(patience);
        lock.lock();
        if (ready_.empty()) {
            isWatched_ = false;
            lock.unlock();
            watchBell_.sleep();
            lock.lock();
        } else if (taken_ == before && isCrowded() && !isPaused() && spares_ < mostSpares) {
            ++spares_;
            const bool start = wantsThread();
            lock.unlock();
            if (start) startThread();
            lock.lock();
        }
    }
}

}  // namespace VanticRestKit::detail
