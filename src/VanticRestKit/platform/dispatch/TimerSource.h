#pragma once

/// \file
/// `TimerSource`: replaces the system clock for the library's delays, for tests.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <memory>

namespace VanticRestKit {

/// Measures the delays of `DispatchQueue::asyncAfter` and the deadlines of loads. The testing kit's `ManualClock`
/// implements it; hosts do not need to. The idle timeout of a request is measured by its session instead.
class VRK_EXPORT TimerSource {
public:
    virtual ~TimerSource();
    TimerSource(const TimerSource&) = delete;
    TimerSource& operator=(const TimerSource&) = delete;

    /// Calls `function` after `delay`, on any thread. `function` does not block. May be called by several threads at
    /// once.
    virtual void after(std::chrono::duration<double> delay, Block function) = 0;

    /// Has `source` measure all delays that begin from now on, in the whole process. Null restores the system clock.
    /// Delays that have already begun are not affected. Any thread.
    static void use(std::shared_ptr<TimerSource> source);

protected:
    TimerSource() = default;
};

}  // namespace VanticRestKit
