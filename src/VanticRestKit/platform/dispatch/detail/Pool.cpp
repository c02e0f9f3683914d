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

/// How long ready strands may wait before a spare thread is started.
constexpr std::chrono::milliseconds patience{20};
}  // namespace

Pool::Pool() : limit_(std::clamp<std::size_t>(std::thread::hardware_concurrency(), 2, 4)) {}

Pool& Pool::shared() {
    static Pool& pool = *new Pool;
    // A forked child has none of the threads, so it starts with an empty pool in the same place.
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
        wake = waking_ < ready_.size() && claimSleeper();
        start = wantsThread();
        watch = claimWatch();
    }
    if (wake) bell_.ring();
    if (start) startThread();
    if (watch) wakeWatch();
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
    if (hasSurplus() && claimSleeper()) bell_.ring();
}

void Pool::pause() { ++pauses_; }

void Pool::resume() {
    const std::lock_guard lock(mutex_);
    if (--pauses_ > 0) return;
    while (claimSleeper()) bell_.ring();
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

bool Pool::claimSleeper() {
    if (sleeping_ == 0) return false;
    --sleeping_;
    ++waking_;
    return true;
}

void Pool::sleep(std::unique_lock<std::mutex>& lock) {
    ++sleeping_;
    lock.unlock();
    bell_.sleep();
    lock.lock();
    --waking_;
}

bool Pool::run(std::shared_ptr<Strand>& strand) {
    const HostSignals signals;
    const bool hasMore = strand->run();
    if (!hasMore) strand.reset();
    return hasMore;
}

void Pool::startThread() {
    if (detail::startThread("vrk-pool", [this] { work(); })) return;
    // The system has no more threads. Existing ones continue, and the next post tries again.
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
        const bool watch = claimWatch();
        lock.unlock();
        if (watch) wakeWatch();
        const bool hasMore = run(strand);
        lock.lock();
        if (hasMore) ready_.push_back(std::move(strand));
        ++idle_;
        // This thread takes one ready strand; wake another thread if there are more.
        if (waking_ + 1 < ready_.size() && claimSleeper()) bell_.ring();
    }
    // This was an unneeded spare, not just a surplus after a wait.
    if (threads_ - waiting_ <= allowed()) --spares_;
    --threads_;
    // The wake-up that this thread consumed may have been meant for one that would work.
    if (!ready_.empty() && claimSleeper()) bell_.ring();
    const bool watch = claimWatch();
    threadsChanged_.notify_all();
    lock.unlock();
    if (watch) wakeWatch();
}

bool Pool::claimWatch() { return isCrowded() && !std::exchange(isWatched_, true); }

void Pool::wakeWatch() {
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
        } else if (taken_ == before && isCrowded() && !isPaused() && spares_ < maxSpares) {
            ++spares_;
            const bool start = wantsThread();
            lock.unlock();
            if (start) startThread();
            lock.lock();
        }
    }
}

}  // namespace VanticRestKit::detail
