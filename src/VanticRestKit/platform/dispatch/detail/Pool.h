#pragma once

/// \file
/// `Pool`: the threads shared by all strands.

#include <VanticRestKit/platform/dispatch/detail/Bell.h>
#include <VanticRestKit/platform/dispatch/detail/Fork.h>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>

namespace VanticRestKit::detail {

class Strand;

/// A few threads, started on demand. Made on first use and never destroyed.
///
/// At most `limit()` threads work at once. A thread that waits for a group does not count, so another may take its
/// place; when it returns, the surplus thread ends. The pool is not told when a thread blocks in any other way:
/// instead a watch thread adds a spare thread whenever strands are ready and none has been taken for a while. A spare
/// thread ends when more than `limit()` threads are idle.
class Pool {
public:
    static Pool& shared();

    /// Appends `strand` to the ready list.
    void add(std::shared_ptr<Strand> strand);

    /// Whether the calling thread belongs to the pool.
    static bool isPoolThread() noexcept;

    /// Tells the pool that the calling pool thread blocks until `endWait()`.
    void beginWait();
    void endWait();

    /// No further block starts until `resume()` has been called as often.
    void pause();
    void resume();
    bool isPaused() const noexcept { return pauses_.load() != 0; }

    /// How many threads work at once if none blocks.
    std::size_t limit() const noexcept { return limit_; }
    /// The number of threads, including waiting ones.
    std::size_t threads() const;

private:
    friend struct PoolProbe;

    Pool();

    /// The most spare threads that are added for blocked strands.
    static constexpr std::size_t maxSpares = 60;

    void work();
    /// Runs some blocks of `strand`, and releases it if it has no more. Returns whether it has more.
    static bool run(std::shared_ptr<Strand>& strand);
    /// Body of the watch thread.
    void watch();
    /// Under the lock: whether more strands are ready than threads are free.
    bool isCrowded() const noexcept { return ready_.size() > idle_ && threads_ - waiting_ >= allowed(); }
    /// How many threads may work now.
    std::size_t allowed() const noexcept { return limit_ + spares_; }
    /// Under the lock: whether a thread must be started, which is then already counted.
    bool wantsThread();
    void startThread();
    /// Runs ready strands on the calling thread while the pool has no thread that can.
    void runHere();
    /// Under the lock: whether the watch is needed and asleep. If so it counts as awake, and the caller must call
    /// `wakeWatch()` after releasing the lock.
    bool claimWatch();
    void wakeWatch();
    /// Under the lock: whether a thread sleeps. If so it counts as waking, and the caller must ring the bell.
    bool claimSleeper();
    /// Sleeps until woken, with the lock released.
    void sleep(std::unique_lock<std::mutex>& lock);
    /// Under the lock, for a thread that looks for work: whether it should end instead.
    bool hasSurplus() const noexcept {
        return threads_ - waiting_ > allowed() || (spares_ > 0 && idle_ > limit_);
    }
    bool canWork() const noexcept { return !ready_.empty() && !isPaused(); }

    ForkMark mark_;
    const std::size_t limit_;
    mutable std::mutex mutex_;
    Bell bell_;
    std::condition_variable threadsChanged_;
    std::deque<std::shared_ptr<Strand>> ready_;
    std::atomic<int> pauses_{0};
    std::size_t threads_ = 0;
    /// Threads that look for work, including ones that are only starting.
    std::size_t idle_ = 0;
    /// Idle threads that sleep, and those that have been woken but do not run yet.
    std::size_t sleeping_ = 0;
    std::size_t waking_ = 0;
    /// Threads that wait for a group.
    std::size_t waiting_ = 0;
    /// How many threads beyond the limit may work now.
    std::size_t spares_ = 0;
    /// How many strands have been taken in total.
    std::uint64_t taken_ = 0;
    /// Rung when `isWatched_` is set while the watch sleeps.
    Bell watchBell_;
    bool hasWatch_ = false;
    bool isWatched_ = false;
};

/// While it exists, the calling thread counts as waiting, if it belongs to the pool.
class PoolWait {
public:
    PoolWait() : isCounted_(Pool::isPoolThread()) {
        if (isCounted_) Pool::shared().beginWait();
    }
    PoolWait(const PoolWait&) = delete;
    PoolWait& operator=(const PoolWait&) = delete;
    ~PoolWait() {
        if (isCounted_) Pool::shared().endWait();
    }

private:
    const bool isCounted_;
};

}  // namespace VanticRestKit::detail
