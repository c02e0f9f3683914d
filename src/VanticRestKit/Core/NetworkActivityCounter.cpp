#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <atomic>
#include <cstdlib>
#include <utility>

namespace VanticRestKit {

namespace {

// Used on the main queue only, like the counter.
NetworkActivityCounter::Indicator& installedIndicator() {
    static NetworkActivityCounter::Indicator& indicator = *new NetworkActivityCounter::Indicator;
    return indicator;
}

// The number of indicators that are installed or about to be. Without any, a change posted now is not reported, since
// an indicator that is installed later is only called for later changes.
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
        // A change that is not reported may be delayed. Otherwise each load would wake a thread for it.
        detail::MainQueue::shared()->postDeferrable([by] { counter = checkedSum(counter, by); });
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
