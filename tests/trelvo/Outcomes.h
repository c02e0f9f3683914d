#pragma once

/// \file
/// What became of operations on user data.

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/trelvo/Trelvo.h>

#include <support/Event.h>
#include <mutex>
#include <ostream>
#include <thread>
#include <vector>

namespace VanticRestKit::test {

/// What one completion was handed, and where.
struct Outcome {
    /// Empty for a success.
    std::optional<TrelvoError> error{};
    /// How many values came.
    std::size_t values = 0;
    std::thread::id thread = std::this_thread::get_id();

    /// The error's description; "success" where there is none.
    std::string text() const { return error ? error->errorDescription() : "success"; }
    bool is(TrelvoError::Kind kind) const { return error && error->kind() == kind; }
    /// The error of the load that `general` and `noAuthToken` hold; `unknowError` where there is none.
    LoaderError loaderError() const {
        const auto* held =
            error && error->underlyingError() ? error->underlyingError()->as<LoaderError>() : nullptr;
        return held != nullptr ? *held : LoaderError::unknowError();
    }
    /// The code of the `NetworkError` in there; 0 where there is none.
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

/// A completion of an operation that hands its outcome on.
template <class T>
Trelvo::Completion<T> completion(Completed completed) {
    return [completed = std::move(completed)](const Result<T, TrelvoError>& result) mutable {
        completed(outcomeOf(result));
    };
}

/// Collects outcomes. Copies are one collection; one in a completion may outlive the test.
class Outcomes {
public:
    /// A completion that adds to this, and tells by `dropped` when it is destroyed.
    Completed completed() const {
        struct Told {
            Event event;
            explicit Told(Event told) : event(std::move(told)) {}
            Told(Told&&) = delete;
            ~Told() { event.signal(); }
        };
        return [state = state_, told = std::make_unique<Told>(state_->dropped)](Outcome outcome) {
            const std::lock_guard lock(state->mutex);
            state->outcomes.push_back(std::move(outcome));
        };
    }

    std::size_t count() const {
        const std::lock_guard lock(state_->mutex);
        return state_->outcomes.size();
    }

    /// The only outcome there is; fails the running test where there are more, or none.
    Outcome only() const {
        const std::lock_guard lock(state_->mutex);
        EXPECT_EQ(state_->outcomes.size(), 1U);
        return state_->outcomes.empty() ? Outcome{.error = TrelvoError::unknown("no outcome")}
                                        : state_->outcomes.back();
    }

    /// Happens once for each completion that is no more.
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
