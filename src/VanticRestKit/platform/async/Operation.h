#pragma once

/// \file
/// `Operation`: asynchronous work in four forms.

#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/async/LoadAwaitable.h>
#include <VanticRestKit/platform/async/LoadFuture.h>
#include <VanticRestKit/platform/async/LoadOptions.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/platform/result/Result.h>

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

namespace VanticRestKit {

namespace detail {

/// The implementation of an operation. Immutable; any thread may use it.
template <class Outcome>
class OperationSource {
public:
    OperationSource() = default;
    OperationSource(const OperationSource&) = delete;
    OperationSource& operator=(const OperationSource&) = delete;
    virtual ~OperationSource() = default;

    /// Makes the work for one start.
    virtual std::shared_ptr<PendingCall> prepare(LoadOptions options,
                                                 UniqueFunction<void(Outcome)> completion) const = 0;
    /// Whether the calling code runs on a queue through which the outcome must pass.
    virtual bool needsCurrentQueue() const = 0;
    /// The outcome of a start that failed with `error`.
    virtual Outcome failed(Error error) const = 0;
};

/// The value type of the publisher: `std::monostate` stands for no value.
template <class T>
using Published = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

}  // namespace detail

/// Work that runs each time it is started, and not before. Copies refer to the same operation. Any number of threads
/// may start it, any number of times; the starts are independent.
///
/// Each start delivers exactly one outcome, on the queue of its options: the result of the work or, after a
/// cancellation or a missed deadline, a failure with a transport error of `URLErrorCode::cancelled` or
/// `URLErrorCode::timedOut`.
template <class O>
class Operation {
public:
    /// A `Result`, or a list of results.
    using Outcome = O;
    /// Receives the outcome.
    using Completion = UniqueFunction<void(Outcome)>;

    /// Used by the library.
    explicit Operation(std::shared_ptr<const detail::OperationSource<Outcome>> source) noexcept
        : source_(std::move(source)) {}

    /// Starts it and calls `completion` once with the outcome. `cancel()` on the handle ends it, and the completion is
    /// called with that error; dropping the handle ends it without calling the completion.
    [[nodiscard]] Cancellable start(LoadOptions options, Completion completion) const {
        const auto call = prepare(std::move(options), std::move(completion));
        Cancellable handle(call);
        call->begin();
        return handle;
    }

    /// `Outcome outcome = co_await operation.value();`
    ///
    /// GCC 12 has a bug: braced arguments with a destructor, such as a string, are destroyed twice in a `co_await`
    /// expression. With that compiler, make the operation in a separate statement before awaiting it.
    LoadAwaitable<Operation> value(AwaitOptions options = {}) const { return {*this, options.copied()}; }
    /// The same with stored options.
    template <std::same_as<LoadOptions> Options>
    LoadAwaitable<Operation> value(Options options) const {
        return {*this, std::move(options)};
    }

    /// Starts it and returns a future. `options.on` is ignored.
    LoadFuture<Outcome> future(LoadOptions options = {}) const { return {*this, std::move(options)}; }

    /// Starts it and blocks the calling thread until the outcome is available: for tools and tests. `options.on` is
    /// ignored.
    Outcome wait(LoadOptions options = {}) const { return future(std::move(options)).get(); }

    /// A publisher of the value or the error. Each subscription starts the operation again. An operation without a
    /// value sends a `std::monostate`.
    auto publisher() const requires requires { typename Outcome::value_type; }
    {
        using Value = detail::Published<typename Outcome::value_type>;
        using Failed = typename Outcome::error_type;
        return AnyPublisher<Value, Failed>::create(
            [operation = *this](const Subscriber<Value, Failed>& subscriber) {
                return operation.start({}, [subscriber](Outcome outcome) {
                    if (!outcome) {
                        subscriber.complete(Failure(std::move(outcome).error()));
                        return;
                    }
                    if constexpr (std::is_void_v<typename Outcome::value_type>) {
                        subscriber.receive({});
                    } else {
                        subscriber.receive(std::move(outcome).value());
                    }
                    subscriber.complete();
                });
            });
    }

    /// Used by the forms above.
    std::shared_ptr<detail::PendingCall> prepare(LoadOptions options, Completion completion) const {
        return source_->prepare(std::move(options), std::move(completion));
    }
    /// For the forms above: whether the calling code runs on a queue through which the outcome must pass.
    bool needsCurrentQueue() const { return source_->needsCurrentQueue(); }
    /// For the forms above: the outcome for `error`.
    Outcome failed(Error error) const { return source_->failed(std::move(error)); }

private:
    std::shared_ptr<const detail::OperationSource<Outcome>> source_;
};

}  // namespace VanticRestKit
