#pragma once

/// \file
/// The libcurl options that come from a session's configuration and are the same for all its requests.

#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Sets them on a new handle.
void setSessionOptions(Options& options, const URLSessionConfiguration& configuration);

/// Makes a handle use the proxy, or connect directly.
void setProxy(Options& options, const URLSessionProxy& proxy, bool goesThrough);

/// The addresses of `configuration` in libcurl's format, "host:port:address,address".
std::vector<std::string> resolvedAddresses(const URLSessionConfiguration& configuration);

}  // namespace VanticRestKit::detail
