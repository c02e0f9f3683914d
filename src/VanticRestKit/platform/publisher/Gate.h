#pragma once

/// \file
/// `Gate`: decides whether a subscription still delivers. Used inside publishers only.

#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/Visibility.h>

#include <atomic>
#include <cstdint>
#include <mutex>

namespace VanticRestKit::detail {

/// The receiving end of a subscription, or of the part of one before a change of queue.
///
/// It is open until it is cancelled or a completion passes. It owns the source's handle, and releases it and the
/// subscriber's functions once it is closed: the source holds its subscriber and the gate holds the source's handle, so
/// closing breaks that reference cycle.
class VRK_EXPORT Gate : public CancelTarget {
public:
    ~Gate() override;

    /// Whether the gate is closed and nothing more is delivered.
    bool isClosed() const noexcept { return (state_.load(std::memory_order_acquire) & closed) != 0; }

    /// Takes ownership of the source's handle; cancels it at once if the gate is already closed.
    void attach(Cancellable upstream);

    /// Closes the gate and cancels the source. Does not wait for a delivery in progress on another thread.
    void cancel() final;

    /// Called when the source has ended by itself, so that it is not cancelled.
    void sourceEnded() noexcept { sourceEnded_.store(true, std::memory_order_release); }

protected:
    /// Begins the delivery of a value. False if the gate is closed; otherwise `leave()` must follow.
    bool enter() noexcept;

    /// Begins the delivery of the completion: closes the gate and releases the source. False if the gate is already
    /// closed; otherwise `leave()` must follow.
    bool enterLast();

    /// Ends a delivery.
    void leave();

    /// Destroys the subscriber's functions. Called once, when the gate is closed and no delivery is in progress.
    virtual void release() = 0;

private:
    static constexpr std::uint32_t closed = 0x80000000U;

    void releaseSource();

    /// The bit `closed`, and in the lower bits the number of deliveries in progress.
    std::atomic<std::uint32_t> state_{0};
    std::atomic<bool> sourceEnded_{false};
    std::mutex upstreamMutex_;
    Cancellable upstream_;
};

}  // namespace VanticRestKit::detail
