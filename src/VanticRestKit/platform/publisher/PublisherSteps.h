#pragma once

/// \file
/// The parts of publishers: sources, operators and sinks. Hosts use them through `AnyPublisher`.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/publisher/Subscriber.h>

#include <cstdlib>
#include <type_traits>
#include <utility>

namespace VanticRestKit::detail {

/// Starts any number of subscriptions, on any thread.
template <class T, class E>
class Source {
public:
    Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    virtual ~Source() = default;

    virtual Cancellable subscribe(Subscriber<T, E> subscriber) const = 0;
};

/// A source made from a function that starts one subscription.
template <class T, class E, class Start>
class CreatedSource final : public Source<T, E> {
public:
    explicit CreatedSource(Start start) : start_(std::move(start)) {}
    Cancellable subscribe(Subscriber<T, E> subscriber) const override {
        return start_(subscriber.forSource());
    }

private:
    Start start_;
};

/// Converts a stream of T and E to one of U and F. `Step` has `receive(T, const Subscriber<U, F>&) const` and
/// `complete(Result<void, E>, const Subscriber<U, F>&) const`, and is shared by all subscriptions.
template <class T, class E, class U, class F, class Step>
class SteppedSource final : public Source<U, F> {
public:
    SteppedSource(std::shared_ptr<const Source<T, E>> upstream, Step step)
        : upstream_(std::move(upstream)), step_(std::make_shared<const Step>(std::move(step))) {}

    Cancellable subscribe(Subscriber<U, F> subscriber) const override {
        return upstream_->subscribe(
            subscriber.template through<T, E>(std::make_shared<Stepping>(step_, subscriber)));
    }

private:
    class Stepping final : public Receiver<T, E> {
    public:
        Stepping(std::shared_ptr<const Step> step, Subscriber<U, F> next)
            : step_(std::move(step)), next_(std::move(next)) {}
        void receive(T value) override { step_->receive(std::move(value), next_); }
        void complete(Result<void, E> result) override { step_->complete(std::move(result), next_); }

    private:
        std::shared_ptr<const Step> step_;
        Subscriber<U, F> next_;
    };

    std::shared_ptr<const Source<T, E>> upstream_;
    std::shared_ptr<const Step> step_;
};

/// The same completion with another error type. `Never` converts to any type, since it never occurs.
template <class F, class E>
Result<void, F> withErrorAs(const Result<void, E>& result) {
    if (result) return {};
    if constexpr (std::is_constructible_v<F, const E&>) {
        return Failure(F(result.error()));
    } else {
        static_assert(!std::is_default_constructible_v<E> && std::is_empty_v<E>,
                      "the error type cannot be converted");
        std::abort();
    }
}

/// Applies a function that may fail to values; a failure ends the stream and cancels the upstream.
template <class T, class E, class U, class F, class Function>
struct TryMapStep {
    Function function;
    void receive(T value, const Subscriber<U, F>& next) const {
        Result<U, F> mapped = function(std::move(value));
        if (mapped) {
            next.receive(std::move(mapped).value());
        } else {
            next.complete(Failure(std::move(mapped).error()));
        }
    }
    void complete(Result<void, E> result, const Subscriber<U, F>& next) const {
        next.complete(withErrorAs<F>(result));
    }
};

/// Applies a function to errors.
template <class T, class E, class F, class Function>
struct MapErrorStep {
    Function function;
    void receive(T value, const Subscriber<T, F>& next) const { next.receive(std::move(value)); }
    void complete(Result<void, E> result, const Subscriber<T, F>& next) const {
        if (result) {
            next.complete();
        } else {
            next.complete(Failure(F(function(result.error()))));
        }
    }
};

/// Replaces an error by a value and normal completion.
template <class T, class E, class F>
struct ReplaceErrorStep {
    T replacement;
    void receive(T value, const Subscriber<T, F>& next) const { next.receive(std::move(value)); }
    void complete(Result<void, E> result, const Subscriber<T, F>& next) const {
        if (!result) next.receive(replacement);
        next.complete();
    }
};

/// The receiving end of a subscription: the subscriber's two functions.
template <class T, class E>
class Sink final : public Receiver<T, E>, public Gate {
public:
    Sink(UniqueFunction<void(T)> onValue, UniqueFunction<void(Result<void, E>)> onCompletion)
        : onValue_(std::move(onValue)), onCompletion_(std::move(onCompletion)) {}

    void receive(T value) override {
        if (!enter()) return;
        if (onValue_) onValue_(std::move(value));
        leave();
    }
    void complete(Result<void, E> result) override {
        if (!enterLast()) return;
        if (onCompletion_) onCompletion_(std::move(result));
        leave();
    }

private:
    void release() override {
        const auto onValue = std::move(onValue_);
        const auto onCompletion = std::move(onCompletion_);
    }

    UniqueFunction<void(T)> onValue_;
    UniqueFunction<void(Result<void, E>)> onCompletion_;
};

/// The end of the part of a subscription before a change of queue: posts everything that it receives.
template <class T, class E>
class QueueHop final : public Receiver<T, E>, public Gate {
public:
    QueueHop(DispatchQueue queue, Subscriber<T, E> next) : queue_(std::move(queue)), next_(std::move(next)) {}

    void receive(T value) override {
        if (!enter()) return;
        queue_.async([next = next_, held = std::move(value)]() mutable { next.receive(std::move(held)); });
        leave();
    }
    void complete(Result<void, E> result) override {
        if (!enterLast()) return;
        queue_.async([next = next_, held = std::move(result)]() mutable { next.complete(std::move(held)); });
        leave();
    }

private:
    // The downstream gate breaks the reference cycle: it releases this one when it closes.
    void release() override {}

    DispatchQueue queue_;
    Subscriber<T, E> next_;
};

/// Delivers on a queue.
template <class T, class E>
class QueuedSource final : public Source<T, E> {
public:
    QueuedSource(std::shared_ptr<const Source<T, E>> upstream, DispatchQueue queue)
        : upstream_(std::move(upstream)), queue_(std::move(queue)) {}

    Cancellable subscribe(Subscriber<T, E> subscriber) const override {
        const auto hop = std::make_shared<QueueHop<T, E>>(queue_, std::move(subscriber));
        hop->attach(upstream_->subscribe(Subscriber<T, E>(hop, hop)));
        return Cancellable(hop);
    }

private:
    std::shared_ptr<const Source<T, E>> upstream_;
    DispatchQueue queue_;
};

}  // namespace VanticRestKit::detail
