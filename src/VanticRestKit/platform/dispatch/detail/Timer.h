#pragma once

/// \file
/// `Timer`: calls functions after a delay.

#include <VanticRestKit/platform/dispatch/Replaceable.h>
#include <VanticRestKit/platform/dispatch/TimerSource.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace VanticRestKit::detail {

/// One thread for the whole process that sleeps until the next function is due. It starts with the first function; the
/// timer is never destroyed. Thread-safe.
class Timer {
public:
    using Clock = std::chrono::steady_clock;

    /// Identifies a function that was added; the default value identifies none.
    struct Id {
        Clock::time_point due{};
        std::uint64_t number = 0;

        friend auto operator<=>(const Id&, const Id&) = default;
    };

    static Timer& shared();

    /// Calls `function`, which must not block, on the timer's thread after `delay`. A delay beyond a hundred years
    /// never ends. If a source is set, it calls the function instead, and the id identifies nothing: a function given
    /// to a source cannot be removed.
    Id add(std::chrono::duration<double> delay, Block function) {
        return add(delay, std::move(function), WithoutThread::waits);
    }

    /// The same, but if the system has no thread for the timer, `function` is called now, on the calling thread: early
    /// rather than never.
    void addOrCall(std::chrono::duration<double> delay, Block function) {
        add(delay, std::move(function), WithoutThread::isCalled);
    }

    /// Destroys a function that has not been called yet, on the calling thread. No effect on one that has.
    void remove(const Id& id);

    /// Gives all functions that are added from now on to `source`; null restores the timer itself.
    void setSource(std::shared_ptr<TimerSource> source) { source_.store(std::move(source)); }

private:
    /// What becomes of a function while the system has no thread for the timer. Each call tries again to get one.
    enum class WithoutThread { waits, isCalled };

    Timer() = default;

    Id add(std::chrono::duration<double> delay, Block function, WithoutThread withoutThread);
    void run();

    Replaceable<std::shared_ptr<TimerSource>> source_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<Id, Block> functions_;
    std::uint64_t lastNumber_ = 0;
    bool hasThread_ = false;
};

}  // namespace VanticRestKit::detail
