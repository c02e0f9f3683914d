#pragma once

/// \file
/// Fills in the record of a request with what is known of every request.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>

namespace VanticRestKit::detail {

/// Says in `record` what `request` was and how it ended; leaves times, and what was sent and received, as they are.
void describe(RequestMetrics& record, const URLRequest& request, const Outcome& outcome);

/// How long ago `start` was.
RequestMetrics::Duration sinceStart(std::chrono::steady_clock::time_point start);

}  // namespace VanticRestKit::detail
