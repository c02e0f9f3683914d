#pragma once

/// \file
/// How the hosts and paths of cookies are compared.

#include <VanticRestKit/platform/url/URL.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `host` in the form in which hosts are compared: lower case, and Punycode for non-ASCII labels.
std::string canonicalHost(std::string_view host);

/// Whether a canonical host is an address, which has no subdomains.
bool isIPAddress(const std::string& host);

/// Whether `host` is `domain` or a subdomain of it. Both are canonical.
bool domainMatches(std::string_view host, std::string_view domain);

/// Whether cookies with `cookiePath` are sent for `path`.
bool pathMatches(std::string_view path, std::string_view cookiePath);

/// The path of a cookie without a Path attribute: the directory of the request's path.
std::string defaultPath(std::string_view path);

/// The parts of a URL that decide which cookies are sent.
struct CookieTarget {
    /// Canonical; empty if the URL has none.
    std::string host{};
    /// Percent-encoded.
    std::string path{};
    bool isSecure = false;
};

CookieTarget cookieTargetOf(const URL& url);

}  // namespace VanticRestKit::detail
