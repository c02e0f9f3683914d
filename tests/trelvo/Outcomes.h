#pragma once

/// \file
/// The outcomes of operations on user data.

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/trelvo/Trelvo.h>

#include <support/Event.h>
#include <mutex>
#include <ostream>
#include <thread>
#include <vector>

namespace VanticRestKit::test {

/// The outcome passed to one completion, and its thread.
struct Outcome {
    /// Empty for a success.
    std::optional<TrelvoError> error{};
    /// The number of values received.
    std::size_t values = 0;
    std::thread::id thread = std::this_thread::get_id();

    /// The error's description, or "success".
    std::string text() const { return error ? error->errorDescription() : "success"; }
    bool is(TrelvoError::Kind kind) const { return error && error->kind() == kind; }
    /// The load error inside `general` and `noAuthToken`, or `unknowError` if there is none.
    LoaderError loaderError() const {
        const auto* held =
            error && error->underlyingError() ? error->underlyingError()->as<LoaderError>() : nullptr;
        return held != nullptr ? *held : LoaderError::unknowError();
    }
    /// The code of the `NetworkError` inside it, 0 if there is none.
    std::int64_t code() const {
        const LoaderError held = loaderError();
        const auto* cause = held.underlyingError() ? held.underlyingError()->as<NetworkError>() : nullptr;
        return cause != nullptr ? cause->errorCode() : 0;
    }
};

inline std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
    return stream << outcome.text();
}

template <class T>
Outcome outcomeOf(const Result<T, TrelvoError>& result) {
    Outcome outcome;
    if (!result) {
        outcome.error = result.error();
    } else if constexpr (requires { result->size(); }) {
        outcome.values = result->size();
    } else if constexpr (!std::is_void_v<T>) {
        outcome.values = 1;
    }
    return outcome;
}

using Completed = UniqueFunction<void(Outcome)>;

/// A completion that passes its outcome to `completed`.
template <class T>
Trelvo::Completion<T> completion(Completed completed) {
    return [completed = std::move(completed)](const Result<T, TrelvoError>& result) mutable {
        completed(outcomeOf(result));
    };
}

/// Collects outcomes. Copies share one collection, so a completion may outlive the test.
class Outcomes {
public:
    /// A completion that adds its outcome to this collection, and signals `dropped` when it is destroyed.
    Completed completed() const {
        struct DropSignal {
            Event event;
            explicit DropSignal(Event signal) : event(std::move(signal)) {}
            DropSignal(DropSignal&&) = delete;
            ~DropSignal() { event.signal(); }
        };
        return [state = state_, signal = std::make_unique<DropSignal>(state_->dropped)](Outcome outcome) {
            const std::lock_guard lock(state->mutex);
            state->outcomes.push_back(std::move(outcome));
        };
    }

    std::size_t count() const {
        const std::lock_guard lock(state_->mutex);
        return state_->outcomes.size();
    }

    /// The only outcome. Fails the current test if there are more or none.
    Outcome only() const {
        const std::lock_guard lock(state_->mutex);
        EXPECT_EQ(state_->outcomes.size(), 1U);
        return state_->outcomes.empty() ? Outcome{.error = TrelvoError::unknown("no outcome")}
                                        : state_->outcomes.back();
    }

    /// Signalled once for each destroyed completion.
    const Event& dropped() const { return state_->dropped; }

private:
    struct State {
        std::mutex mutex;
        std::vector<Outcome> outcomes;
        Event dropped;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace VanticRestKit::test
