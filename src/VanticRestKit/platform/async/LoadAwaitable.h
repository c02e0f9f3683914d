#pragma once

/// \file
/// `LoadAwaitable`: awaits a load in a coroutine.

#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/async/LoadOptions.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>

#include <coroutine>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit {

/// The awaitable that `value()` returns. The load starts when the coroutine suspends; the coroutine resumes with the
/// outcome on the queue of the options, or on the queue on which the service delivers if they name none.
///
/// It may be awaited once, in a coroutine of any type. Destroying a waiting coroutine cancels the load, and it is never
/// resumed; destroy it on the queue on which it would resume, or when it cannot be resuming at that moment. Allocates
/// nothing of its own.
template <class Starter>
class [[nodiscard]] LoadAwaitable {
public:
    /// The result of `co_await`.
    using Outcome = typename Starter::Outcome;

    /// Nothing is started before `co_await`.
    LoadAwaitable(Starter starter, LoadOptions options)
        : starter_(std::move(starter)), options_(std::move(options)) {}
    /// May only be moved before it is awaited.
    LoadAwaitable(LoadAwaitable&&) noexcept = default;
    LoadAwaitable& operator=(LoadAwaitable&&) = delete;

    /// For `co_await`.
    bool await_ready() const noexcept { return false; }

    /// For `co_await`.
    void await_suspend(std::coroutine_handle<> waiting) {
        const std::shared_ptr<detail::PendingCall> call =
            starter_.prepare(std::move(options_), [this, waiting](Outcome outcome) {
                outcome_.emplace(std::move(outcome));
                waiting.resume();
            });
        handle_ = Cancellable(call);
        // The coroutine may resume and destroy this object before the call returns.
        call->begin();
    }

    /// For `co_await`.
    Outcome await_resume() {
        if (!outcome_) std::abort();
        return *std::move(outcome_);
    }

private:
    Starter starter_;
    LoadOptions options_;
    std::optional<Outcome> outcome_{};
    Cancellable handle_{};
};

}  // namespace VanticRestKit
