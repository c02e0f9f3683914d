#pragma once

#include <atomic>
#include <optional>

namespace VanticRestKit::sample {

/// What time it is for the service: the computer's time, or one that a test has set. Any thread.
class Clock {
public:
    /// Seconds since 1970, whole milliseconds of them.
    double now() const;

    /// Stands still at a time from now on; empty: goes with the computer's again.
    void set(std::optional<double> secondsSince1970);

private:
    std::atomic<double> set_{-1.0};  // negative where nobody has set it
};

/// The clock of all routes.
Clock& serviceClock();

}  // namespace VanticRestKit::sample
