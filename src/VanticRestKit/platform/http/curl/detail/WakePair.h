#pragma once

/// \file
/// Keeps libcurl's own descriptors from child processes.

#include <curl/curl.h>

namespace VanticRestKit::detail {

/// Has the pair of sockets by which libcurl wakes `multi`, which is new, closed in processes that the host starts. Does
/// nothing if the pair cannot be told from the host's descriptors for certain.
void closeWakePairInChildren(CURLM* multi);

}  // namespace VanticRestKit::detail
