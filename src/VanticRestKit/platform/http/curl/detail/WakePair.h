#pragma once

/// \file
/// Closes libcurl's own wake-up sockets in child processes.

#include <curl/curl.h>

namespace VanticRestKit::detail {

/// Marks the socket pair with which libcurl wakes `multi`, a new handle, as close-on-exec. Does nothing if the pair
/// cannot be identified with certainty among the host's descriptors.
void closeWakePairInChildren(CURLM* multi);

}  // namespace VanticRestKit::detail
