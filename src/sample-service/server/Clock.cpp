#include "server/Clock.h"

#include <chrono>

namespace VanticRestKit::sample {

double Clock::now() const {
    if (const double set = set_.load(); set >= 0) return set;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()) / 1000.0;
}

void Clock::set(std::optional<double> secondsSince1970) { set_.store(secondsSince1970.value_or(-1.0)); }

Clock& serviceClock() {
    static Clock& made = *new Clock;
    return made;
}

}  // namespace VanticRestKit::sample
