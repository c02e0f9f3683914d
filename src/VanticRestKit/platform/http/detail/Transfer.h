#pragma once

/// \file
/// `Transfer`: what a task and the transport share of one request.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <utility>

namespace VanticRestKit::detail {

/// One request, its completion, and whether it was started or cancelled yet.
class Transfer {
public:
    Transfer(URLRequest request, URLSession::Completion completion, MetricsReceiver metrics = {})
        : request_(std::move(request)), completion_(std::move(completion)), metrics_(std::move(metrics)) {
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

    /// How far it is. Written by the I/O thread, read by any.
    struct Progress {
        std::atomic<std::int64_t> received = 0;
        std::atomic<std::int64_t> expectedToReceive = -1;
        std::atomic<std::int64_t> sent = 0;
        std::atomic<std::int64_t> expectedToSend = 0;
    };
    Progress progress;

    /// Marks a started transfer as cancelled. The mark is set before the transport is told, so that a cancel that
    /// overtakes the start on its way to the transport is not lost.
    void markCancelled() noexcept { isCancelled_.store(true); }
    bool isCancelled() const noexcept { return isCancelled_.load(); }

    /// Hands over the records, then calls the completion, and destroys both receivers. On the delegate queue only, and
    /// once.
    void complete(Outcome outcome) {
        URLSession::Completion completion = std::move(completion_);
        if (!completion) return;
        if (metrics_) report(outcome);
        completion(std::move(outcome.data), std::move(outcome.response), std::move(outcome.error));
    }

private:
    enum class State { fresh, started, cancelled };

    void report(Outcome& outcome);

    const URLRequest request_;
    URLSession::Completion completion_;
    MetricsReceiver metrics_;
    std::chrono::steady_clock::time_point startedAt_{};
    std::atomic<State> state_ = State::fresh;
    std::atomic<bool> isCancelled_ = false;
};

}  // namespace VanticRestKit::detail
