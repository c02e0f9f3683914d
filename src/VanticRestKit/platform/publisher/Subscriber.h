#pragma once

/// \file
/// `Subscriber`: to whom a publisher's source sends its values.

#include <VanticRestKit/platform/publisher/Gate.h>
#include <VanticRestKit/platform/result/Result.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// What a subscriber sends to: the next step of a publisher.
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

/// The receiving end of one subscription. Copies are the same end.
///
/// A source sends any number of values one after another, from any threads but never from two at once, then
/// one completion. What it sends after the completion or after the subscription was cancelled goes nowhere.
/// Dropping all copies without a completion is allowed; nothing more is delivered then.
template <class T, class E>
class Subscriber {
public:
    /// For publishers alone.
    Subscriber(std::shared_ptr<detail::Receiver<T, E>> receiver, std::shared_ptr<detail::Gate> gate) noexcept
        : receiver_(std::move(receiver)), gate_(std::move(gate)) {}

    /// Sends `value`; the functions of the subscriber run inside this call, unless they were moved to a
    /// queue.
    void receive(T value) const {
        // The call may cancel the source that owns this very object.
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

    /// Whether nothing that is sent is delivered any more: cancelled, or ended by a step on the way.
    bool isEnded() const noexcept { return gate_->isClosed(); }

    /// The same end of the same subscription, reached through `step`.
    template <class T0, class E0>
    Subscriber<T0, E0> through(std::shared_ptr<detail::Receiver<T0, E0>> step) const {
        return Subscriber<T0, E0>(std::move(step), gate_);
    }

    /// The same end, in the hands of the source: when that completes by itself it is not cancelled any more.
    Subscriber forSource() const { return as(true); }

    /// The same end, in the hands of a step, whose failure is to cancel the source.
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
