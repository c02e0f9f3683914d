#pragma once

/// \file
/// `Transfer`: the state of one request that a task and the transport share.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/detail/ProgressReporter.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

namespace VanticRestKit::detail {

/// One request, its completion, and whether it has been started or cancelled.
class Transfer {
public:
    /// `reporter` is null if its progress is not reported.
    Transfer(URLRequest request, URLSession::Completion completion, MetricsReceiver metrics = {},
             std::shared_ptr<ProgressReporter> reporter = nullptr)
        : request_(std::move(request)),
          completion_(std::move(completion)),
          metrics_(std::move(metrics)),
          reporter_(std::move(reporter)) {
        if (request_.httpBody())
            progress.expectedToSend = static_cast<std::int64_t>(request_.httpBody()->size());
    }

    const URLRequest& request() const noexcept { return request_; }

    /// Whether records of its requests are collected. For the transport, between the start and the end of the transfer.
    bool isObserved() const noexcept { return static_cast<bool>(metrics_); }
    /// When the transfer was started; set only if it `isObserved`.
    std::chrono::steady_clock::time_point startedAt() const noexcept { return startedAt_; }

    /// Whether this call starts the transfer: only the first one does, and only if it was not cancelled.
    bool start() {
        State fresh = State::fresh;
        if (!state_.compare_exchange_strong(fresh, State::started)) return false;
        if (metrics_) startedAt_ = std::chrono::steady_clock::now();
        return true;
    }

    /// Cancels a transfer that has not been started. Returns whether it did.
    bool cancelUnstarted() noexcept {
        State fresh = State::fresh;
        return state_.compare_exchange_strong(fresh, State::cancelled);
    }

    bool isStarted() const noexcept { return state_.load() == State::started; }

    ProgressCounts progress;
    /// Reports the progress; null if it is not reported.
    ProgressReporter* reporter() const noexcept { return reporter_.get(); }
    /// Bytes were transferred. On the I/O thread.
    void moved(std::chrono::steady_clock::time_point now) {
        if (reporter_) reporter_->moved(progress, now);
    }
    /// Stops progress reports.
    void stopProgress() noexcept {
        if (reporter_) reporter_->stop();
    }

    /// Marks a started transfer as cancelled. Called before the transport is told to cancel, so that a cancel message
    /// that overtakes the start message is not lost.
    void markCancelled() noexcept { isCancelled_.store(true); }
    bool isCancelled() const noexcept { return isCancelled_.load(); }

    /// Reports the records, calls the completion, and destroys both receivers. Only on the delegate queue, and only
    /// once.
    void complete(Outcome outcome) {
        URLSession::Completion completion = std::move(completion_);
        if (!completion) return;
        if (reporter_) reporter_->end(outcome.error ? nullptr : &progress);
        if (metrics_) report(outcome);
        completion(std::move(outcome.data), std::move(outcome.response), std::move(outcome.error));
    }

private:
    enum class State { fresh, started, cancelled };

    void report(Outcome& outcome);

    const URLRequest request_;
    URLSession::Completion completion_;
    MetricsReceiver metrics_;
    const std::shared_ptr<ProgressReporter> reporter_;
    std::chrono::steady_clock::time_point startedAt_{};
    std::atomic<State> state_ = State::fresh;
    std::atomic<bool> isCancelled_ = false;
};

}  // namespace VanticRestKit::detail
