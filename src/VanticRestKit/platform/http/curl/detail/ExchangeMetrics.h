#pragma once

/// \file
/// `ExchangeMetrics`: records the figures of one transfer's requests.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>
#include <cstdint>
#include <list>
#include <optional>

namespace VanticRestKit::detail {

struct Attempt;

/// Records the requests of one transfer, one after another. For the I/O thread only.
class ExchangeMetrics {
public:
    /// `begun` is when the first request was started.
    explicit ExchangeMetrics(std::chrono::steady_clock::time_point begun) : begun_(begun), records_(1) {}

    /// The request is passed to libcurl. Later calls for the same request have no effect.
    void sent();
    /// The request waits in the queue of its origin, which has this length.
    void queued(std::int64_t queueLength) { records_.back().queueLength = queueLength; }
    /// Reading of its body is paused from now on, until `resumed`.
    void heldBack(std::chrono::steady_clock::time_point now) { heldBackSince_ = now; }
    void resumed(std::chrono::steady_clock::time_point now);
    /// Reads libcurl's figures of the request, before the handle is reused. Does nothing if the request was not sent.
    void read(const Attempt& attempt);
    /// The response to the request is a redirect. It came from the cache if the request was not sent.
    void answeredWithRedirect(std::int64_t status);
    /// `request`, whose figures were read last, was redirected; another request follows.
    void redirected(const URLRequest& request);
    /// The last request has ended. Moves all records to the outcome.
    void ended(const URLRequest& request, Outcome& outcome);

private:
    using Clock = std::chrono::steady_clock;

    void end(const URLRequest& request, const Outcome& outcome);

    Clock::time_point begun_;
    bool isSent_ = false;
    std::optional<Clock::time_point> heldBackSince_;
    RequestMetrics::Duration queued_{};
    // The last one is that of the current request.
    std::list<RequestMetrics> records_;
};

}  // namespace VanticRestKit::detail
