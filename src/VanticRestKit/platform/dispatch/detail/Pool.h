#pragma once

/// \file
/// `Pool`: the threads that all strands share.

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

/// A few threads, started when there is work for them. Made on first use and never destroyed.
///
/// At most `limit()` threads work at a time. A thread that waits for a group does not count, so that another
/// may work in its place; when it comes back the surplus one ends. Of a thread that blocks in any other way
/// nobody is told: a watch sees that strands are ready and none was taken for a while, and has one more
/// thread work. Such a spare thread ends when there are more without work than `limit()`.
class Pool {
public:
    static Pool& shared();

    /// Puts `strand` at the end of the line.
    void add(std::shared_ptr<Strand> strand);

    /// Whether the calling thread is one of the pool's.
    static bool isPoolThread() noexcept;

    /// The calling pool thread is about to block; it works again after `endWait()`.
    void beginWait();
    void endWait();

    /// Holds back every block that has not started, until as many `resume()` have followed.
    void pause();
    void resume();
    bool isPaused() const noexcept { return pauses_.load() != 0; }

    /// How many threads work at a time where none blocks.
    std::size_t limit() const noexcept { return limit_; }
    /// How many threads there are, those that wait included.
    std::size_t threads() const;

private:
    friend struct PoolProbe;

    Pool();

    /// Beyond that many spare threads blocked strands have to wait for each other.
    static constexpr std::size_t mostSpares = 60;

    void work();
    /// Runs some of the blocks of `strand`, and lets go of it if it has no more. Returns whether it has.
    static bool run(std::shared_ptr<Strand>& strand);
    /// What the thread of the watch does.
    void watch();
    /// Under the lock: whether strands are ready for which no thread is left.
    bool isCrowded() const noexcept { return ready_.size() > idle_ && threads_ - waiting_ >= allowed(); }
    /// How many threads may work now.
    std::size_t allowed() const noexcept { return limit_ + spares_; }
    /// Under the lock: whether there is work that needs one more thread, which is then counted already.
    bool wantsThread();
    void startThread();
    /// Runs what is ready on the calling thread, as long as no thread of the pool is there to do it.
    void runHere();
    /// Under the lock: whether the watch is needed and sleeps. It counts as awake then, and the caller has to call
    /// it without the lock.
    bool wantsWatch();
    void callWatch();
    /// Under the lock: whether a thread sleeps, which the caller then has to wake and which counts as coming.
    bool callSleeper();
    /// Gives the lock back while nobody calls.
    void sleep(std::unique_lock<std::mutex>& lock);
    /// Under the lock, for a thread that looks for work: whether it is to end instead.
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
    /// Threads that look for work, those included that have not come that far yet.
    std::size_t idle_ = 0;
    /// Those of them that sleep, and those that were woken and have not come that far yet.
    std::size_t sleeping_ = 0;
    std::size_t coming_ = 0;
    /// Threads that wait for a group.
    std::size_t waiting_ = 0;
    /// How many threads more than the limit may work now.
    std::size_t spares_ = 0;
    /// How often a strand was taken.
    std::uint64_t taken_ = 0;
    /// Rung when `isWatched_` was set while the watch sleeps.
    Bell watchBell_;
    bool hasWatch_ = false;
    bool isWatched_ = false;
};

/// Counts the calling thread as waiting for the time of its life, if it is one of the pool's.
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
