#pragma once

/// \file
/// `ProgressReporter`: reports the progress of one transfer to its receiver.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/LoadProgress.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace VanticRestKit::detail {

/// The progress of a transfer. Written by the I/O thread, read by any thread.
struct ProgressCounts {
    std::atomic<std::int64_t> received = 0;
    std::atomic<std::int64_t> expectedToReceive = -1;
    std::atomic<std::int64_t> sent = 0;
    std::atomic<std::int64_t> expectedToSend = 0;

    /// The current counts, with the state `loading`.
    LoadProgress snapshot() const;
};

/// Reports the progress of a transfer from the I/O thread to its receiver on the delegate queue: every change of the
/// state, and the counts at most once per `interval`. At most one report of counts is pending at a time, so that a slow
/// queue is not flooded.
class ProgressReporter : public std::enable_shared_from_this<ProgressReporter> {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::milliseconds interval{100};

    ProgressReporter(ProgressReceiver receiver, DispatchQueue delegateQueue);

    /// Bytes were transferred. On the I/O thread.
    void moved(const ProgressCounts& counts, TimePoint now);
    /// The state has changed. On the I/O thread.
    void changed(LoadProgress::State state, std::int64_t queueLength, const ProgressCounts& counts);

    /// Stops all reports. Any thread.
    void stop() noexcept { isStopped_.store(true); }

    /// Reports the final counts unless `counts` is null, and releases the receiver. On the delegate queue.
    void end(const ProgressCounts* counts);

private:
    void post(const LoadProgress& progress, bool isCountReport);
    void report(const LoadProgress& progress);

    const DispatchQueue delegateQueue_;
    std::atomic<bool> isStopped_ = false;
    std::atomic<bool> isPending_ = false;
    // Used on the I/O thread.
    LoadProgress::State state_ = LoadProgress::State::loading;
    std::optional<TimePoint> reportedAt_;
    // Used on the delegate queue.
    ProgressReceiver receiver_;
    LoadProgress reported_;
};

}  // namespace VanticRestKit::detail
