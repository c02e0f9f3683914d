#pragma once

/// \file
/// `Transfer`: what a task and the transport share of one request.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/detail/ProgressTeller.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

namespace VanticRestKit::detail {

/// One request, its completion, and whether it was started or cancelled yet.
class Transfer {
public:
    /// `teller` is null if no one is told of its progress.
    Transfer(URLRequest request, URLSession::Completion completion, MetricsReceiver metrics = {},
             std::shared_ptr<ProgressTeller> teller = nullptr)
        : request_(std::move(request)),
          completion_(std::move(completion)),
          metrics_(std::move(metrics)),
          teller_(std::move(teller)) {
        if (request_.httpBody())
            progress.expectedToSend = static_cast<std::int64_t>(request_.httpBody()->size());
    }

    const URLRequest& request() const noexcept { return request_; }

    /// Whether its requests are recorded. For the transport, from the start of the transfer to its end.
    bool isObserved() const noexcept { return static_cast<bool>(metrics_); }
    /// When an observed transfer was started.
    std::chrono::steady_clock::time_point startedAt() const noexcept { return startedAt_; }

    /// Whether this call starts the transfer: only the first one does, and none after `cancel()`.
    bool start() {
        State fresh = State::fresh;
        if (!state_.compare_exchange_strong(fresh, State::started)) return false;
        if (metrics_) startedAt_ = std::chrono::steady_clock::now();
        return true;
    }

    /// Cancels a transfer that was not started. Returns whether it did.
    bool cancelUnstarted() noexcept {
        State fresh = State::fresh;
        return state_.compare_exchange_strong(fresh, State::cancelled);
    }

    bool isStarted() const noexcept { return state_.load() == State::started; }

    ProgressCounts progress;
    /// Who is told of it; null if no one is.
    ProgressTeller* teller() const noexcept { return teller_.get(); }
    /// Bytes have moved. On the I/O thread.
    void moved(std::chrono::steady_clock::time_point now) {
        if (teller_) teller_->moved(progress, now);
    }
    /// Nothing more is told of its progress.
    void stopProgress() noexcept {
        if (teller_) teller_->stop();
    }

    /// Marks a started transfer as cancelled. The mark is set before the transport is told, so that a cancel that
    /// overtakes the start on its way to the transport is not lost.
    void markCancelled() noexcept { isCancelled_.store(true); }
    bool isCancelled() const noexcept { return isCancelled_.load(); }

    /// Hands over the records, then calls the completion, and destroys both receivers. On the delegate queue only, and
    /// once.
    void complete(Outcome outcome) {
        URLSession::Completion completion = std::move(completion_);
        if (!completion) return;
        if (teller_) teller_->end(outcome.error ? nullptr : &progress);
        if (metrics_) report(outcome);
        completion(std::move(outcome.data), std::move(outcome.response), std::move(outcome.error));
    }

private:
    enum class State { fresh, started, cancelled };

    void report(Outcome& outcome);

    const URLRequest request_;
    URLSession::Completion completion_;
    MetricsReceiver metrics_;
    const std::shared_ptr<ProgressTeller> teller_;
    std::chrono::steady_clock::time_point startedAt_{};
    std::atomic<State> state_ = State::fresh;
    std::atomic<bool> isCancelled_ = false;
};

}  // namespace VanticRestKit::detail
