#pragma once

/// \file
/// Makes a cookie from what a server said, or refuses it.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieHost.h>
#include <VanticRestKit/platform/http/cookies/detail/SetCookie.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <optional>

namespace VanticRestKit::detail {

/// The cookie that `sender` set at `now` (RFC 6265, section 5.3). Empty if it is refused: it is for a domain that is not
/// the sender's or is a public suffix, it is Secure and came over http, or its name begins with "__Secure-" or "__Host-"
/// and it lacks what that promises.
std::optional<HTTPCookie> acceptedCookie(const SetCookie& said, const CookieTarget& sender, Date now);

/// `cookie`, as a host gave it, with its domain in the form that a store keeps. Empty if it cannot be sent, or is for
/// all hosts below a public suffix.
std::optional<HTTPCookie> canonicalCookie(HTTPCookie cookie);

}  // namespace VanticRestKit::detail
