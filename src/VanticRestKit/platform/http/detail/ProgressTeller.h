#pragma once

/// \file
/// `ProgressTeller`: tells one receiver how far its transfer is.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/LoadProgress.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace VanticRestKit::detail {

/// How far a transfer is. Written by the I/O thread, read by any.
struct ProgressCounts {
    std::atomic<std::int64_t> received = 0;
    std::atomic<std::int64_t> expectedToReceive = -1;
    std::atomic<std::int64_t> sent = 0;
    std::atomic<std::int64_t> expectedToSend = 0;

    /// The counts of now, of a transfer that waits for nothing of its session.
    LoadProgress snapshot() const;
};

/// Carries what the I/O thread knows of a transfer to its receiver on the delegate queue: every change of the state, and
/// the counts no more often than `interval`. At most one report of the counts is on its way at a time, so that a slow
/// queue is not flooded.
class ProgressTeller : public std::enable_shared_from_this<ProgressTeller> {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::milliseconds interval{100};

    ProgressTeller(ProgressReceiver receiver, DispatchQueue delegateQueue);

    /// Bytes have moved. On the I/O thread.
    void moved(const ProgressCounts& counts, TimePoint now);
    /// What the transfer waits for has changed. On the I/O thread.
    void changed(LoadProgress::State state, std::int64_t queueLength, const ProgressCounts& counts);

    /// Nothing is told any more. Any thread.
    void stop() noexcept { isStopped_.store(true); }

    /// Tells the last counts, if the transfer came to a good end with them, and lets the receiver go. On the delegate
    /// queue.
    void end(const ProgressCounts* counts);

private:
    void post(const LoadProgress& progress, bool isOfCounts);
    void tell(const LoadProgress& progress);

    const DispatchQueue delegateQueue_;
    std::atomic<bool> isStopped_ = false;
    std::atomic<bool> isUnderWay_ = false;
    // Of the I/O thread.
    LoadProgress::State state_ = LoadProgress::State::loading;
    std::optional<TimePoint> toldAt_;
    // Of the delegate queue.
    ProgressReceiver receiver_;
    LoadProgress told_;
};

}  // namespace VanticRestKit::detail
