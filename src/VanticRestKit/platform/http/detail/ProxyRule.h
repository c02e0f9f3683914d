#pragma once

/// \file
/// Which requests go through a proxy, and their request target there.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionConnectionSettings.h>
#include <VanticRestKit/platform/url/URL.h>

#include <optional>
#include <string>

namespace VanticRestKit::detail {

/// Why nothing can be sent through `proxy`; empty if its address can be used.
std::optional<TransportFault> whyUnusable(const URLSessionProxy& proxy);

/// Whether a request of `url` goes through `proxy`: all except those to its exceptions.
bool goesThrough(const URLSessionProxy& proxy, const URL& url);

/// The request target of `url` at a proxy: the absolute URL without user and fragment.
std::string absoluteTarget(const URL& url);

}  // namespace VanticRestKit::detail
