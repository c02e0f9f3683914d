#pragma once

/// \file
/// The headers that a session's configuration adds to requests.

#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

namespace VanticRestKit::detail {

/// `request` with the headers of `configuration` that it lacks, and with the session's `User-Agent` if it has none.
/// Names compare case-insensitively.
URLRequest withSessionHeaders(URLRequest request, const URLSessionConfiguration& configuration);

}  // namespace VanticRestKit::detail
