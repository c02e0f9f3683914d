#pragma once

/// \file
/// How a request is put to libcurl.

#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

namespace VanticRestKit::detail {

/// Prepares the handle of `attempt`, which comes from the pool, for its request with its header lines.
/// `onNewConnection`: not on one that is open. Returns false where libcurl cannot be made to send it.
bool prepareEasy(Attempt& attempt, const URLSessionConfiguration& configuration, bool onNewConnection);

}  // namespace VanticRestKit::detail
