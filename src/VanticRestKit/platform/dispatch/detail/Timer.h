#pragma once

/// \file
/// `Timer`: calls functions when their time has come.

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

/// One thread that sleeps until the next function is due, for the whole process. It starts with the first function,
/// and the timer is never destroyed. Any thread may call.
class Timer {
public:
    using Clock = std::chrono::steady_clock;

    /// Names one function that was added. The default value names none.
    struct Id {
        Clock::time_point due{};
        std::uint64_t number = 0;

        friend auto operator<=>(const Id&, const Id&) = default;
    };

    static Timer& shared();

    /// Calls `function` on the timer's thread once `delay` has passed; it must not block. A delay beyond a hundred
    /// years never passes. If there is a source, that one calls it, and the id names nothing: a function that it was
    /// handed is not removed.
    Id add(std::chrono::duration<double> delay, Block function);

    /// Drops a function that was not called yet, on the calling thread. Does nothing to one that was.
    void remove(const Id& id);

    /// Hands all that is added from now on to `source`; null: keeps it here.
    void setSource(std::shared_ptr<TimerSource> source) { source_.store(std::move(source)); }

private:
    Timer() = default;

    void run();

    Replaceable<std::shared_ptr<TimerSource>> source_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<Id, Block> functions_;
    std::uint64_t lastNumber_ = 0;
    bool hasThread_ = false;
};

}  // namespace VanticRestKit::detail
