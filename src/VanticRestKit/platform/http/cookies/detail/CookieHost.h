#pragma once

/// \file
/// How hosts and paths of cookies compare.

#include <VanticRestKit/platform/url/URL.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `host` in the form in which hosts are compared: lower case, letters beyond ASCII in Punycode.
std::string canonicalHost(std::string_view host);

/// Whether a canonical host is an address and not a name, so that it has no subdomains.
bool isIPAddress(const std::string& host);

/// Whether `host` is `domain` or a name below it. Both are canonical.
bool domainMatches(std::string_view host, std::string_view domain);

/// Whether a request of `path` gets the cookies of `cookiePath`.
bool pathMatches(std::string_view path, std::string_view cookiePath);

/// The path of a cookie that names none: the folder of the path of the request.
std::string defaultPath(std::string_view path);

/// What decides which cookies a request gets.
struct CookieTarget {
    /// Canonical; empty if the URL has none.
    std::string host{};
    /// Percent-encoded.
    std::string path{};
    bool isSecure = false;
};

CookieTarget cookieTargetOf(const URL& url);

}  // namespace VanticRestKit::detail
