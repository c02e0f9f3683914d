#pragma once

/// \file
/// `Operation`: something that can be started, awaited or waited for.

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

/// What an operation does, whoever offers it. Immutable; used by any threads.
template <class Outcome>
class OperationSource {
public:
    OperationSource() = default;
    OperationSource(const OperationSource&) = delete;
    OperationSource& operator=(const OperationSource&) = delete;
    virtual ~OperationSource() = default;

    /// Makes the work of one start.
    virtual std::shared_ptr<PendingCall> prepare(LoadOptions options,
                                                 UniqueFunction<void(Outcome)> completion) const = 0;
    /// Whether the calling code occupies a queue that the outcome has to pass.
    virtual bool needsCurrentQueue() const = 0;
    /// The outcome of a start that failed with `error` before it began.
    virtual Outcome failed(Error error) const = 0;
};

/// What a publisher sends for a value: nothing has a type of its own.
template <class T>
using Published = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

}  // namespace detail

/// Something that is done each time it is started. Nothing happens before that. Copies are the same operation; any
/// number of threads may start it, any number of times, each time for itself.
///
/// Each start has one outcome, delivered once, on the queue of its options: that of the work, or, after a cancel or a
/// missed deadline, a failure that holds a transport error with `URLErrorCode::cancelled` or `URLErrorCode::timedOut`.
template <class O>
class Operation {
public:
    /// A `Result`, or a list of results.
    using Outcome = O;
    /// Receives the outcome.
    using Completion = UniqueFunction<void(Outcome)>;

    /// Made by what offers it.
    explicit Operation(std::shared_ptr<const detail::OperationSource<Outcome>> source) noexcept
        : source_(std::move(source)) {}

    /// Starts it and calls `completion` once with the outcome. Calling `cancel()` on the handle ends it, and the
    /// completion is told so; dropping the handle ends it, and the completion is not called.
    [[nodiscard]] Cancellable start(LoadOptions options, Completion completion) const {
        const auto call = prepare(std::move(options), std::move(completion));
        Cancellable handle(call);
        call->begin();
        return handle;
    }

    /// `Outcome outcome = co_await operation.value();`
    ///
    /// GCC 12 has a fault: braced arguments that own something, such as a string, are destroyed twice if they stand in
    /// the same expression as `co_await`. With it, name the operation in a statement of its own before it is awaited.
    LoadAwaitable<Operation> value(AwaitOptions options = {}) const { return {*this, options.copied()}; }
    /// The same with options that are kept somewhere.
    template <std::same_as<LoadOptions> Options>
    LoadAwaitable<Operation> value(Options options) const {
        return {*this, std::move(options)};
    }

    /// Starts it; the outcome can be waited for. `options.on` is ignored.
    LoadFuture<Outcome> future(LoadOptions options = {}) const { return {*this, std::move(options)}; }

    /// Starts it and blocks the calling thread until the outcome is there: for tools and tests. `options.on` is
    /// ignored.
    Outcome wait(LoadOptions options = {}) const { return future(std::move(options)).get(); }

    /// A publisher of the value, or of the error in its place. Each subscription starts it anew. An operation without
    /// a value sends a `std::monostate`.
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

    /// For the forms above.
    std::shared_ptr<detail::PendingCall> prepare(LoadOptions options, Completion completion) const {
        return source_->prepare(std::move(options), std::move(completion));
    }
    /// For the forms above: whether the queue of the caller has to be known.
    bool needsCurrentQueue() const { return source_->needsCurrentQueue(); }
    /// For the forms above: the outcome for `error`.
    Outcome failed(Error error) const { return source_->failed(std::move(error)); }

private:
    std::shared_ptr<const detail::OperationSource<Outcome>> source_;
};

}  // namespace VanticRestKit
