#pragma once

/// \file
/// `HTTPCookie`: one cookie.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// The value of a cookie's SameSite attribute. It is kept and not acted on: a client without pages makes no requests on
/// behalf of another site.
enum class HTTPCookieSameSite { none, lax, strict };

/// One cookie: a plain value. Two cookies with the same `name`, `domain`, `includesSubdomains` and `path` are the same
/// cookie to a storage, so that the newer one replaces the older one.
struct HTTPCookie {
    /// Not empty, without "=", ";" and control characters.
    std::string name{};
    /// Without ";" and control characters. The quotes of a quoted value are part of it.
    std::string value{};
    /// The host that gets the cookie. A storage keeps it in lower case, in ASCII ("xn--" for letters beyond ASCII), an
    /// IPv6 address without brackets. A leading dot is removed and sets `includesSubdomains`.
    std::string domain{};
    /// Whether the hosts below `domain` get the cookie too.
    bool includesSubdomains = false;
    /// The path that gets the cookie, with all paths below it, as it is percent-encoded in URLs. Begins with a slash.
    std::string path = "/";
    /// When the cookie ends. Empty: with the process; such a cookie is in no file.
    std::optional<Date> expiresDate{};
    /// Whether the cookie goes out over https only.
    bool isSecure = false;
    /// Whether the server asks that scripts of a page do not see the cookie; kept and not acted on.
    bool isHTTPOnly = false;
    /// Empty: the server gave none, or a value that is not known.
    std::optional<HTTPCookieSameSite> sameSite{};

    /// Whether the cookie ends with the process.
    bool isSessionOnly() const noexcept { return !expiresDate; }

    friend bool operator==(const HTTPCookie&, const HTTPCookie&) = default;
};

}  // namespace VanticRestKit
