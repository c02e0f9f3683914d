#pragma once

/// \file
/// `ManualClock`: time that passes when the test says so.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <chrono>
#include <cstddef>
#include <memory>

namespace VanticRestKit::Testing {

/// A clock that stands still until `advance`. While it lives, the library measures its delays by it:
/// `DispatchQueue::asyncAfter`, the deadlines of loads, and `Answer::after`. Dates are not affected: a token's end is
/// compared with the system's date. One test has one clock at a time.
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

    /// Shows `start` and drives the library from now on.
    explicit ManualClock(Date start = Date(Seconds(1'767'225'600)));
    /// Gives the library the system's clock again. What had not come due is dropped.
    ~ManualClock();
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    /// The time that the clock shows. Any thread.
    Date now() const;

    /// Calls `function` on the thread of `advance` once `delay` has passed. Not above zero: at the next `advance`. Any
    /// thread.
    void after(Seconds delay, Block function);

    /// How many functions have not come due yet. Any thread.
    std::size_t pending() const;

    /// Lets `time` pass. What comes due meanwhile is called in the order of time, each while the clock shows its time;
    /// so is what those functions ask for, if it falls in the same span. How many were called. `time` is not negative.
    std::size_t advance(Seconds time);

private:
    class Source;

    std::shared_ptr<Source> source_;
};

}  // namespace VanticRestKit::Testing
