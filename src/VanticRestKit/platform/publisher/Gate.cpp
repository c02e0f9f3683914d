#include <VanticRestKit/platform/publisher/Gate.h>

namespace VanticRestKit::detail {

Gate::~Gate() = default;

void Gate::attach(Cancellable upstream) {
    const std::lock_guard lock(upstreamMutex_);
    // If the gate has been closed, the handle is destroyed with the argument, after the lock is released.
    if (!isClosed()) upstream_ = std::move(upstream);
}

void Gate::cancel() {
    const std::uint32_t before = state_.fetch_or(closed, std::memory_order_acq_rel);
    if ((before & closed) != 0) return;
    releaseSource();
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
    releaseSource();
    return true;
}

void Gate::leave() {
    if (state_.fetch_sub(1, std::memory_order_acq_rel) == (closed | 1)) release();
}

void Gate::releaseSource() {
    Cancellable upstream;
    {
        const std::lock_guard lock(upstreamMutex_);
        upstream = std::move(upstream_);
    }
    if (sourceEnded_.load(std::memory_order_acquire)) upstream.detach();
}

}  // namespace VanticRestKit::detail
