#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <cstdlib>
#include <utility>

namespace VanticRestKit {

namespace {

// Touched on the main queue only, as the counter is.
NetworkActivityCounter::Indicator& installedIndicator() {
    static NetworkActivityCounter::Indicator& indicator = *new NetworkActivityCounter::Indicator;
    return indicator;
}

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

void NetworkActivityCounter::increase() {
    DispatchQueue::main().async([] { setCounter(checkedSum(counter, 1)); });
}

void NetworkActivityCounter::decrease() {
    DispatchQueue::main().async([] { setCounter(checkedSum(counter, -1)); });
}

void NetworkActivityCounter::setIndicator(Indicator indicator) {
    DispatchQueue::main().async(
        [indicator = std::move(indicator)]() mutable { installedIndicator() = std::move(indicator); });
}

}  // namespace VanticRestKit
