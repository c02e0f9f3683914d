#pragma once

/// \file
/// The options of libcurl that come from a session's configuration and are the same for all of its requests.

#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Sets them on a handle that was just made.
void setSessionOptions(Options& options, const URLSessionConfiguration& configuration);

/// Has a handle go through the proxy, or past it.
void setProxy(Options& options, const URLSessionProxy& proxy, bool goesThrough);

/// The addresses of `configuration` in libcurl's form, "host:port:address,address".
std::vector<std::string> resolvedAddresses(const URLSessionConfiguration& configuration);

}  // namespace VanticRestKit::detail
