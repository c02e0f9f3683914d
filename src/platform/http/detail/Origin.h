#pragma once

/// \file
/// The origin of a URL, and whether a URL can be asked at all.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>

#include <optional>
#include <string>

namespace VanticRestKit::detail {

/// Scheme, host and port as one text, the same for all URLs of one origin: "https://host:443".
std::string originOf(const URL& url);

/// Whether `url` is one of https.
bool isSecure(const URL& url);

/// Why `request` cannot be sent; empty where it can.
std::optional<Fault> whyUnusable(const URLRequest& request);

}  // namespace VanticRestKit::detail
