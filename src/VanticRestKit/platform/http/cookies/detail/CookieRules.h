#pragma once

/// \file
/// Makes a cookie from a parsed Set-Cookie header, or rejects it.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieHost.h>
#include <VanticRestKit/platform/http/cookies/detail/SetCookie.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <optional>

namespace VanticRestKit::detail {

/// The cookie that `sender` set at `now` (RFC 6265, section 5.3). Empty if it is rejected: its domain is not the
/// sender's or is a public suffix, it is Secure but was received over http, or its name begins with "__Secure-" or
/// "__Host-" and it does not meet the requirements of the prefix.
std::optional<HTTPCookie> acceptedCookie(const SetCookie& parsed, const CookieTarget& sender, Date now);

/// `cookie`, set by a host, with a canonical domain. Empty if it cannot be sent, or is for all subdomains of a public
/// suffix.
std::optional<HTTPCookie> canonicalCookie(HTTPCookie cookie);

}  // namespace VanticRestKit::detail
