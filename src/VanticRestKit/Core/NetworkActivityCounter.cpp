#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <atomic>
#include <cstdlib>
#include <utility>

namespace VanticRestKit {

namespace {

// Touched on the main queue only, as the counter is.
NetworkActivityCounter::Indicator& installedIndicator() {
    static NetworkActivityCounter::Indicator& indicator = *new NetworkActivityCounter::Indicator;
    return indicator;
}

// How many indicators are installed or on their way to be. With none there is nobody to be told of a change
// that is posted now, since an indicator that comes later is told of later changes only.
std::atomic<std::int64_t> indicators = 0;

std::int64_t checkedSum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) std::abort();
    return sum;
}

}  // namespace

std::int64_t NetworkActivityCounter::counter = 0;

void NetworkActivityCounter::setCounter(std::int64_t value) {
    counter = value;
    DispatchQueue::main().async([] {
        if (const Indicator& indicator = installedIndicator()) indicator(counter != 0);
    });
}

void NetworkActivityCounter::change(std::int64_t by) {
    if (indicators.load() == 0) {
        // A change that nobody is told of can wait for the next: each would cost a load the wake of a thread.
        detail::MainQueue::shared()->postUnhurried([by] { counter = checkedSum(counter, by); });
    } else {
        DispatchQueue::main().async([by] { setCounter(checkedSum(counter, by)); });
    }
}

void NetworkActivityCounter::increase() { change(1); }

void NetworkActivityCounter::decrease() { change(-1); }

void NetworkActivityCounter::setIndicator(Indicator indicator) {
    if (indicator) ++indicators;
    DispatchQueue::main().async([indicator = std::move(indicator)]() mutable {
        Indicator& installed = installedIndicator();
        if (installed) --indicators;
        installed = std::move(indicator);
    });
}

}  // namespace VanticRestKit
