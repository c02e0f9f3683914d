#pragma once

#include <atomic>
#include <optional>

namespace VanticRestKit::sample {

/// The clock of the service: the system clock, or a time that a test has set. Any thread.
class Clock {
public:
    /// Seconds since 1970, with a resolution of milliseconds.
    double now() const;

    /// Stops the clock at a time; empty: follows the system clock again.
    void set(std::optional<double> secondsSince1970);

private:
    std::atomic<double> set_{-1.0};  // negative if not set
};

/// The clock of all routes.
Clock& serviceClock();

}  // namespace VanticRestKit::sample
