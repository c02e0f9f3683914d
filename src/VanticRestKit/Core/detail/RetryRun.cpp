#include <VanticRestKit/Core/detail/RetryRun.h>

#include <VanticRestKit/Core/ErrorAdvice.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace VanticRestKit::detail {

RetryRun::RetryRun(RetryPolicy policy) : policy_(std::move(policy)) {}

RetryRun::~RetryRun() = default;

void RetryRun::begin() {
    if (policy_.budget) policy_.budget->deposit();
    attempt();
}

void RetryRun::attempt() {
    const std::optional<std::uint64_t> step = nextStep();
    if (!step) return;
    const std::shared_ptr<Serviceable> sender = service();
    if (!sender) {
        if (end() && lastError_) deliver(*std::move(lastError_));
        return;
    }
    ++attempts_;
    keep(*step, send(*sender));
}

void RetryRun::failed(Error error) {
    const auto pause = pauseAfter(error);
    if (!pause) {
        if (end()) deliver(std::move(error));
        return;
    }
    lastError_ = std::move(error);
    const std::optional<std::uint64_t> step = nextStep();
    if (!step) return;
    keep(*step, policy_.environment.after(*pause, [self = shared_from_this()] { self->attempt(); }));
}

/// The pause before the next attempt; empty if there is none.
std::optional<std::chrono::duration<double>> RetryRun::pauseAfter(const Error& error) const {
    if (attempts_ >= policy_.attempts) return std::nullopt;
    const RetryEnvironment& environment = policy_.environment;
    const ErrorAdvice advice = adviceOn(error, {.now = environment.now()});
    if (!advice.mayTryAgain) return std::nullopt;
    if (advice.retryAfter && *advice.retryAfter > policy_.maxPause) return std::nullopt;
    if (policy_.budget && !policy_.budget->withdraw()) return std::nullopt;
    const double random = environment.random();
    const auto grown = policy_.firstPause * std::exp2(attempts_ - 1);
    const auto pause = std::min(grown, policy_.maxPause) * (0.5 + random / 2);
    if (!advice.retryAfter) return pause;
    // Not before the service allows it, and not at the same moment for all clients.
    return std::min(std::max(pause, *advice.retryAfter + policy_.firstPause * random), policy_.maxPause);
}

/// Begins an attempt or a pause and returns its number; empty if the run has ended.
std::optional<std::uint64_t> RetryRun::nextStep() {
    Cancellable previous;
    std::optional<std::uint64_t> step;
    {
        const std::lock_guard lock(mutex_);
        if (state_ == State::running) step = ++step_;
        previous = std::move(current_);
    }
    previous.detach();
    return step;
}

void RetryRun::keep(std::uint64_t step, Cancellable handle) {
    {
        const std::lock_guard lock(mutex_);
        if (state_ == State::running && step == step_) {
            current_ = std::move(handle);
            return;
        }
        if (state_ != State::stopped) handle.detach();
    }
    // If the run was stopped before its handle arrived, the destructor of `handle` cancels it here.
}

/// True for the one caller that may deliver the outcome.
bool RetryRun::end() {
    Cancellable previous;
    bool isFirst = false;
    {
        const std::lock_guard lock(mutex_);
        isFirst = state_ == State::running;
        if (isFirst) state_ = State::ended;
        previous = std::move(current_);
    }
    previous.detach();
    return isFirst;
}

void RetryRun::stop() {
    const std::shared_ptr<RetryRun> self = shared_from_this();
    Cancellable stopped;
    const std::lock_guard lock(mutex_);
    if (state_ == State::running) state_ = State::stopped;
    stopped = std::move(current_);
}

}  // namespace VanticRestKit::detail
