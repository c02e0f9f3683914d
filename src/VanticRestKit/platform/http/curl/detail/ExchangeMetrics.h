#pragma once

/// \file
/// `ExchangeMetrics`: records what the requests of one transfer did.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>
#include <cstdint>
#include <list>
#include <optional>

namespace VanticRestKit::detail {

struct Attempt;

/// Records the requests of one observed transfer, one after the other. For the I/O thread only.
class ExchangeMetrics {
public:
    /// `begun` is when the first request was asked for.
    explicit ExchangeMetrics(std::chrono::steady_clock::time_point begun) : begun_(begun), records_(1) {}

    /// The request goes to libcurl. What is sent again in its place changes nothing.
    void sent();
    /// It waits in the queue of its origin, with so many in all.
    void waitsAmong(std::int64_t queueLength) { records_.back().queueLength = queueLength; }
    /// Its body is not read from now on, until `goesOn`.
    void heldBack(std::chrono::steady_clock::time_point now) { heldBackSince_ = now; }
    void goesOn(std::chrono::steady_clock::time_point now);
    /// libcurl is about to lose the request: takes its figures, unless the request was redirected.
    void read(const Attempt& attempt);
    /// The answer to the request leads to another one. It came from the cache if the request was not sent.
    void answeredWithRedirect(std::int64_t status);
    /// `request`, whose figures were read last, has ended in a redirect; another one follows.
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
    // The last one is that of the request that is under way.
    std::list<RequestMetrics> records_;
};

}  // namespace VanticRestKit::detail
