#pragma once

/// \file
/// Fills in the parts of a record that are known for every request.

#include <VanticRestKit/platform/http/detail/Outcome.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>

namespace VanticRestKit::detail {

/// Describes `request` and its outcome in `record`; leaves times and sizes on the wire unchanged.
void describe(RequestMetrics& record, const URLRequest& request, const Outcome& outcome);

/// How long ago `start` was.
RequestMetrics::Duration sinceStart(std::chrono::steady_clock::time_point start);

}  // namespace VanticRestKit::detail
