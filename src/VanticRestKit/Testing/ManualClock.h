#pragma once

/// \file
/// `ManualClock`: a clock that the test advances.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <chrono>
#include <cstddef>
#include <memory>

namespace VanticRestKit::Testing {

/// A clock that only changes by `advance`. While it exists, the library uses it for its delays:
/// `DispatchQueue::asyncAfter`, the deadlines of loads, and `Answer::after`. Dates are not affected: the expiry of a
/// token is compared with the system clock. Only one clock may exist at a time.
///
/// ```cpp
/// ManualClock clock;
/// auto load = show->start({.deadline = 5s}, [&](auto result) { ... });
/// clock.advance(5s);     // the deadline passes here
/// executor.runAll();     // and the load ends here
/// ```
class ManualClock {
public:
    /// A time in seconds.
    using Seconds = std::chrono::duration<double>;

    /// The clock starts at `start`; the library uses it from now on.
    explicit ManualClock(Date start = Date(Seconds(1'767'225'600)));
    /// The library uses the system clock again. Functions that are not due yet are dropped.
    ~ManualClock();
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    /// The current time of the clock. Any thread.
    Date now() const;

    /// Calls `function` on the thread of `advance` after `delay`; if that is zero or less, at the next `advance`. Any
    /// thread.
    void after(Seconds delay, Block function);

    /// The number of functions that are not due yet. Any thread.
    std::size_t pending() const;

    /// Advances the clock by `time`, which must not be negative. Functions that become due are called in order, each
    /// with the clock set to its time; this includes functions that these calls add. Returns the number of calls.
    std::size_t advance(Seconds time);

private:
    class Source;

    std::shared_ptr<Source> source_;
};

}  // namespace VanticRestKit::Testing
