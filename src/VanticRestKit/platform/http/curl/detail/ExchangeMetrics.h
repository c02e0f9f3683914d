#pragma once

/// \file
/// `ExchangeMetrics`: records what the requests of one transfer did.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>
#include <vector>

namespace VanticRestKit::detail {

struct Attempt;

/// Records the requests of one observed transfer, one after the other. For the I/O thread only.
class ExchangeMetrics {
public:
    /// `begun` is when the first request was asked for.
    explicit ExchangeMetrics(std::chrono::steady_clock::time_point begun) : begun_(begun) {}

    /// The request goes to libcurl. What is sent again in its place changes nothing.
    void sent();
    /// libcurl is about to lose the request: takes its figures.
    void read(const Attempt& attempt);
    /// `request`, whose figures were read last, has ended in a redirect; another one follows.
    void redirected(const URLRequest& request);
    /// The last request has ended. Moves all records to the outcome.
    void ended(const URLRequest& request, Outcome& outcome);

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point begun_;
    RequestMetrics::Duration queued_{};
    bool isSent_ = false;
    std::int64_t redirects_ = 0;
    // The figures of the request that is under way.
    RequestMetrics figures_;
    std::vector<RequestMetrics> ended_;
};

}  // namespace VanticRestKit::detail
