#pragma once

/// \file
/// `TimerSource`: measures the delays of the library in place of the system's clock, for tests.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <memory>

namespace VanticRestKit {

/// What measures delays: those of `DispatchQueue::asyncAfter` and the deadlines of loads. The testing kit's
/// `ManualClock` is one; a host needs none. The idle time-out of a request is measured by its session.
class VRK_EXPORT TimerSource {
public:
    virtual ~TimerSource();
    TimerSource(const TimerSource&) = delete;
    TimerSource& operator=(const TimerSource&) = delete;

    /// Calls `function` once `delay` has passed, on a thread of its choice. `function` does not block. Called by
    /// several threads at once.
    virtual void after(std::chrono::duration<double> delay, Block function) = 0;

    /// Has `source` measure the delays that begin from now on, in the whole process. Null: the system's clock again.
    /// Delays that have begun stay where they are. Any thread.
    static void use(std::shared_ptr<TimerSource> source);

protected:
    TimerSource() = default;
};

}  // namespace VanticRestKit
