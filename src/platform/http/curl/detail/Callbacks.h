#pragma once

/// \file
/// What libcurl calls while it works on an attempt.

#include <VanticRestKit/platform/http/curl/detail/Exchange.h>

#include <curl/curl.h>

namespace VanticRestKit::detail {

/// Gives `attempt` and its callbacks to its handle. Returns whether libcurl took them.
bool installCallbacks(Attempt& attempt);

}  // namespace VanticRestKit::detail
