#pragma once

/// \file
/// Sets up a handle for a request.

#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

namespace VanticRestKit::detail {

/// Prepares the handle of `attempt`, which comes from the pool, for its request and header lines. `onNewConnection`: do
/// not reuse an open connection. Returns false if libcurl does not accept the request.
bool prepareEasy(Attempt& attempt, const URLSessionConfiguration& configuration, bool onNewConnection);

}  // namespace VanticRestKit::detail
