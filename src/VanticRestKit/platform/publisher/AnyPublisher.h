#pragma once

/// \file
/// `AnyPublisher`: a stream of values that starts again for each subscription.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/publisher/PublisherSteps.h>

namespace VanticRestKit {

/// The error type of a publisher that never fails. It has no values.
struct Never {
    Never() = delete;
};

/// Describes a stream: values in order, then one completion, either normal or with an error of type E.
///
/// Nothing happens until a subscriber subscribes, and each subscription does its own work. The subscription lasts as
/// long as its handle: dropping the handle cancels it, and cancellation reaches the source. After `cancel()` on the
/// delivering thread nothing more is delivered; after `cancel()` on another thread, at most the delivery then in
/// progress finishes. The subscriber's functions are destroyed when the stream ends or is cancelled.
///
/// Everything runs on the thread on which the source sends, unless `receiveOn` changes that. A publisher is a value;
/// copies share its description, and any number of threads may subscribe. The functions passed to its operators are
/// shared by all subscriptions and may be called by several threads at once if the sources send so.
///
///     const auto numbers = AnyPublisher<int, Error>::just(20).map([](int n) { return n + 1; });
///     Cancellable subscription = numbers.sink([](int n) { ... }, [](Result<void, Error> end) { ... });
template <class T, class E = Error>
class AnyPublisher {
public:
    /// The type of its values.
    using Output = T;
    /// The type of its errors.
    using Failed = E;

    // Copies only: a moved-from publisher would have no source.
    AnyPublisher(const AnyPublisher&) = default;
    AnyPublisher& operator=(const AnyPublisher&) = default;

    /// A publisher that calls `start(Subscriber<T, E>)` for each subscription, on the subscribing thread.
    /// `start` returns the handle that cancels the work; it is not cancelled once the source has completed by itself.
    template <class Start>
    static AnyPublisher create(Start start) {
        return AnyPublisher(std::make_shared<const detail::CreatedSource<T, E, Start>>(std::move(start)));
    }

    /// Sends `value` and ends.
    static AnyPublisher just(T value) {
        return create([held = std::move(value)](const Subscriber<T, E>& subscriber) {
            subscriber.receive(held);
            subscriber.complete();
            return Cancellable();
        });
    }

    /// Fails with `error`.
    static AnyPublisher fail(E error) {
        return create([held = std::move(error)](const Subscriber<T, E>& subscriber) {
            subscriber.complete(Failure(held));
            return Cancellable();
        });
    }

    /// Subscribes. Either function may be empty. A source that sends immediately does so before this returns.
    [[nodiscard]] Cancellable sink(UniqueFunction<void(T)> onValue,
                                   UniqueFunction<void(Result<void, E>)> onCompletion = {}) const {
        const auto end = std::make_shared<detail::Sink<T, E>>(std::move(onValue), std::move(onCompletion));
        end->attach(source_->subscribe(Subscriber<T, E>(end, end)));
        return Cancellable(end);
    }

    /// Forwards everything to an existing subscriber: lets a source made by `create` continue as another publisher,
    /// whose completion then becomes its own.
    [[nodiscard]] Cancellable subscribe(Subscriber<T, E> subscriber) const {
        return source_->subscribe(subscriber.forStep());
    }

    /// Applies `function`, T to U, to each value.
    template <class Function, class U = std::invoke_result_t<const Function&, T>>
    AnyPublisher<U, E> map(Function function) const {
        auto succeed = [inner = std::move(function)](T value) {
            return Result<U, E>(inner(std::move(value)));
        };
        return through<U, E>(detail::TryMapStep<T, E, U, E, decltype(succeed)>{std::move(succeed)});
    }

    /// Applies `function`, T to `Result<U, F>`, to each value. A failure cancels the source and ends the stream with
    /// that error. Upstream errors pass as F, which must be E or constructible from it.
    template <class Function, class Mapped = std::invoke_result_t<const Function&, T>>
    AnyPublisher<typename Mapped::value_type, typename Mapped::error_type> tryMap(Function function) const {
        using U = typename Mapped::value_type;
        using F = typename Mapped::error_type;
        return through<U, F>(detail::TryMapStep<T, E, U, F, Function>{std::move(function)});
    }

    /// Applies `function`, E to F, to an error of the source or of an earlier operator.
    template <class Function, class F = std::invoke_result_t<const Function&, E>>
    AnyPublisher<T, F> mapError(Function function) const {
        return through<T, F>(detail::MapErrorStep<T, E, F, Function>{std::move(function)});
    }

    /// Decodes each value, which holds bytes, by `decoder.decode<U>(bytes)`, which returns `Result<U, Error>`.
    template <class U, class Decoder>
    AnyPublisher<U, Error> decode(Decoder decoder) const {
        return tryMap([inner = std::move(decoder)](const T& bytes) -> Result<U, Error> {
            return inner.template decode<U>(bytes);
        });
    }

    /// Replaces an error by `replacement` and normal completion.
    AnyPublisher<T, Never> replaceError(T replacement) const {
        return through<T, Never>(detail::ReplaceErrorStep<T, E, Never>{std::move(replacement)});
    }

    /// Delivers values and completion on `queue`, in order.
    AnyPublisher receiveOn(DispatchQueue queue) const {
        return AnyPublisher(std::make_shared<const detail::QueuedSource<T, E>>(source_, std::move(queue)));
    }

    /// Returns this publisher: every publisher is already type-erased.
    AnyPublisher eraseToAnyPublisher() const { return *this; }

private:
    template <class U, class F>
    friend class AnyPublisher;

    explicit AnyPublisher(std::shared_ptr<const detail::Source<T, E>> source) noexcept
        : source_(std::move(source)) {}

    template <class U, class F, class Step>
    AnyPublisher<U, F> through(Step step) const {
        return AnyPublisher<U, F>(
            std::make_shared<const detail::SteppedSource<T, E, U, F, Step>>(source_, std::move(step)));
    }

    std::shared_ptr<const detail::Source<T, E>> source_;
};

}  // namespace VanticRestKit
