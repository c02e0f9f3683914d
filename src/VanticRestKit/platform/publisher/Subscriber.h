#pragma once

/// \file
/// `Subscriber`: receives the values of a publisher's source.

#include <VanticRestKit/platform/publisher/Gate.h>
#include <VanticRestKit/platform/result/Result.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// The next step of a publisher.
template <class T, class E>
class Receiver {
public:
    Receiver() = default;
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;
    virtual ~Receiver() = default;

    virtual void receive(T value) = 0;
    virtual void complete(Result<void, E> result) = 0;
};

}  // namespace detail

/// The receiving end of one subscription. Copies refer to the same one.
///
/// A source sends any number of values, from any thread but never from two at once, then one completion. Anything sent
/// after the completion or after the subscription was cancelled is ignored. All copies may be dropped without a
/// completion; then nothing more is delivered.
template <class T, class E>
class Subscriber {
public:
    /// For publishers only.
    Subscriber(std::shared_ptr<detail::Receiver<T, E>> receiver, std::shared_ptr<detail::Gate> gate) noexcept
        : receiver_(std::move(receiver)), gate_(std::move(gate)) {}

    /// Sends `value`; the subscriber's functions run inside this call, unless `receiveOn` moves them to a queue.
    void receive(T value) const {
        // The call may cancel the source that owns this object.
        const auto receiver = receiver_;
        if (!isEnded()) receiver->receive(std::move(value));
    }

    /// Ends the stream, normally or with an error: `complete()`, `complete(Failure(error))`.
    void complete(Result<void, E> result = {}) const {
        const auto receiver = receiver_;
        if (isEnded()) return;
        if (isSource_) gate_->sourceEnded();
        receiver->complete(std::move(result));
    }

    /// Whether the subscription was cancelled or ended by an operator: nothing more is delivered.
    bool isEnded() const noexcept { return gate_->isClosed(); }

    /// A subscriber for the same subscription that sends through `step`.
    template <class T0, class E0>
    Subscriber<T0, E0> through(std::shared_ptr<detail::Receiver<T0, E0>> step) const {
        return Subscriber<T0, E0>(std::move(step), gate_);
    }

    /// A copy for the source: once that completes by itself, it is no longer cancelled.
    Subscriber forSource() const { return as(true); }

    /// A copy for an operator, whose failure cancels the source.
    Subscriber forStep() const { return as(false); }

private:
    Subscriber as(bool isSource) const {
        Subscriber copy = *this;
        copy.isSource_ = isSource;
        return copy;
    }

    std::shared_ptr<detail::Receiver<T, E>> receiver_;
    std::shared_ptr<detail::Gate> gate_;
    bool isSource_ = false;
};

}  // namespace VanticRestKit
