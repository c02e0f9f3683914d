#include <VanticRestKit/platform/publisher/Gate.h>

namespace VanticRestKit::detail {

Gate::~Gate() = default;

void Gate::attach(Cancellable upstream) {
    const std::lock_guard lock(upstreamMutex_);
    // Where it is closed by now, nobody comes any more to take the handle: it goes with the argument, when
    // the lock has been given back.
    if (!isClosed()) upstream_ = std::move(upstream);
}

void Gate::cancel() {
    const std::uint32_t before = state_.fetch_or(closed, std::memory_order_acq_rel);
    if ((before & closed) != 0) return;
    letGoOfSource();
    if (before == 0) release();
}

bool Gate::enter() noexcept {
    std::uint32_t state = state_.load(std::memory_order_acquire);
    do {
        if ((state & closed) != 0) return false;
    } while (!state_.compare_exchange_weak(state, state + 1, std::memory_order_acq_rel));
    return true;
}

bool Gate::enterLast() {
    std::uint32_t state = state_.load(std::memory_order_acquire);
    do {
        if ((state & closed) != 0) return false;
    } while (!state_.compare_exchange_weak(state, (state + 1) | closed, std::memory_order_acq_rel));
    letGoOfSource();
    return true;
}

void Gate::leave() {
    if (state_.fetch_sub(1, std::memory_order_acq_rel) == (closed | 1)) release();
}

void Gate::letGoOfSource() {
    Cancellable upstream;
    {
        const std::lock_guard lock(upstreamMutex_);
        upstream = std::move(upstream_);
    }
    if (sourceEnded_.load(std::memory_order_acquire)) upstream.detach();
}

}  // namespace VanticRestKit::detail
