#pragma once

/// \file
/// `LoadFuture`: waits for the outcome of a load.

#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/async/LoadOptions.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// The type-independent part of a future.
class VRK_EXPORT FutureState {
public:
    FutureState();
    FutureState(const FutureState&) = delete;
    FutureState& operator=(const FutureState&) = delete;
    virtual ~FutureState();

    bool isReady() const;
    void wait() const;
    bool waitFor(std::chrono::duration<double> time) const;
    /// Calls `then` when the outcome is stored, on the storing thread; immediately if it already is.
    void whenReady(Block then);

protected:
    /// Marks the outcome as stored.
    void ready();

private:
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    bool isReady_ = false;
    Block then_;
};

template <class Outcome>
class FutureOutcome final : public FutureState {
public:
    void set(Outcome&& outcome) {
        outcome_.emplace(std::move(outcome));
        ready();
    }
    Outcome take() { return *std::move(outcome_); }

private:
    std::optional<Outcome> outcome_;
};

/// The error of a wait on the queue that would have to deliver the outcome.
VRK_EXPORT Error waitWouldNeverEnd();

}  // namespace detail

/// The outcome of a started load. Movable. Dropping it does not cancel the load; only the stop token and the deadline
/// of its options do.
///
/// A wait on the queue that has to deliver the outcome would never end. There `get()` fails at once with an error of
/// the domain "VanticRestKit.Wait" that says so, and `waitFor()` returns false. A `std::future` made from this one
/// cannot detect that and waits forever.
template <class Outcome>
class [[nodiscard]] LoadFuture {
public:
    /// Starts the load at once.
    template <class Starter>
    LoadFuture(Starter starter, LoadOptions options)
        : LoadFuture(std::make_shared<Starter>(std::move(starter))) {
        options.on = std::nullopt;
        const auto& held = *static_cast<const Starter*>(starter_.get());
        const auto call = held.prepare(
            std::move(options), [state = state_](Outcome&& outcome) { state->set(std::move(outcome)); });
        Cancellable(call).detach();
        call->begin();
    }

    LoadFuture(LoadFuture&&) noexcept = default;
    /// Takes over the load of the other one.
    LoadFuture& operator=(LoadFuture&&) noexcept = default;

    /// Whether the outcome is available.
    bool isReady() const { return state_->isReady(); }

    /// Waits for the outcome for at most `time`. Returns whether it is available.
    bool waitFor(std::chrono::duration<double> time) const {
        if (wouldNeverEnd()) return false;
        return state_->waitFor(time);
    }

    /// Waits for the outcome and returns it. Call it once.
    Outcome get() {
        if (wouldNeverEnd()) return hooks_.failed(starter_.get(), detail::waitWouldNeverEnd());
        state_->wait();
        return state_->take();
    }

    /// Calls `completion` once with the outcome: on the queue on which the service delivers, or immediately if it is
    /// available. Use instead of `get()`.
    void then(UniqueFunction<void(Outcome)> completion) && {
        state_->whenReady(
            [state = state_, receive = std::move(completion)]() mutable { receive(state->take()); });
    }

private:
    /// Detects a wait that would never end, and returns its error.
    struct Hooks {
        bool (*needsCurrentQueue)(const void* starter);
        Outcome (*failed)(const void* starter, Error error);
    };

    template <class Starter>
    explicit LoadFuture(std::shared_ptr<Starter> starter)
        : starter_(starter),
          hooks_{[](const void* held) { return static_cast<const Starter*>(held)->needsCurrentQueue(); },
                 [](const void* held, Error error) {
                     return static_cast<const Starter*>(held)->failed(std::move(error));
                 }} {}

    bool wouldNeverEnd() const { return !state_->isReady() && hooks_.needsCurrentQueue(starter_.get()); }

    std::shared_ptr<const void> starter_;
    Hooks hooks_;
    std::shared_ptr<detail::FutureOutcome<Outcome>> state_ =
        std::make_shared<detail::FutureOutcome<Outcome>>();
};

}  // namespace VanticRestKit
