#pragma once

/// \file
/// `Gate`: decides what of a subscription is still delivered. Publishers are built on it; hosts need not know
/// it.

#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/Visibility.h>

#include <atomic>
#include <cstdint>
#include <mutex>

namespace VanticRestKit::detail {

/// The end of a subscription, or of the part of one that runs on one thread without a change.
///
/// It is open until it is cancelled or a completion passes. It owns the way back to the source, and lets go
/// of it and of the receiving functions as soon as it is closed: a source holds its subscriber and the gate
/// holds the source's handle, so that closing is what breaks that ring.
class VRK_EXPORT Gate : public CancelTarget {
public:
    ~Gate() override;

    /// Whether nothing passes any more.
    bool isClosed() const noexcept { return (state_.load(std::memory_order_acquire) & closed) != 0; }

    /// Takes over the source's handle; cancels it at once where the gate is closed by now.
    void attach(Cancellable upstream);

    /// Closes the gate and cancels the source. Does not wait for a delivery under way on another thread.
    void cancel() final;

    /// The source itself has ended: there is nothing left to cancel there.
    void sourceEnded() noexcept { sourceEnded_.store(true, std::memory_order_release); }

protected:
    /// Begins the delivery of a value. False where the gate is closed; otherwise `leave()` is to follow.
    bool enter() noexcept;

    /// Begins the delivery of the completion: closes the gate and cancels what is left of the source. False
    /// where it is closed already; otherwise `leave()` is to follow.
    bool enterLast();

    /// Ends a delivery.
    void leave();

    /// Drops the receiving functions. Called once: when the gate is closed and no delivery is under way.
    virtual void release() = 0;

private:
    static constexpr std::uint32_t closed = 0x80000000U;

    void letGoOfSource();

    /// The bit `closed`, and in the lower bits the number of deliveries under way.
    std::atomic<std::uint32_t> state_{0};
    std::atomic<bool> sourceEnded_{false};
    std::mutex upstreamMutex_;
    Cancellable upstream_;
};

}  // namespace VanticRestKit::detail
