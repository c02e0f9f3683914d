#pragma once

/// \file
/// Makes the record of a request from what is known of every request.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>

namespace VanticRestKit::detail {

/// A record of `request` that ended with `outcome`: without times, and without what was sent and received.
RequestMetrics recordOf(const URLRequest& request, const Outcome& outcome);

/// How long ago `start` was.
RequestMetrics::Duration sinceStart(std::chrono::steady_clock::time_point start);

}  // namespace VanticRestKit::detail
