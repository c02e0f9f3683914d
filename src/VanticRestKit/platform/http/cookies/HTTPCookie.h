#pragma once

/// \file
/// `HTTPCookie`: one cookie.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// The value of a cookie's SameSite attribute. It is stored but has no effect: a client without web pages makes no
/// cross-site requests.
enum class HTTPCookieSameSite { none, lax, strict };

/// One cookie: a plain value. In a storage, a cookie replaces an older one with the same `name`, `domain`,
/// `includesSubdomains` and `path`.
struct HTTPCookie {
    /// Not empty; without "=", ";" and control characters.
    std::string name{};
    /// Without ";" and control characters. The quotes of a quoted value are part of it.
    std::string value{};
    /// The host to which the cookie is sent. A storage converts it to lower case and to ASCII ("xn--" for other
    /// letters); an IPv6 address has no brackets. A leading dot is removed and sets `includesSubdomains`.
    std::string domain{};
    /// Whether the cookie is also sent to subdomains of `domain`.
    bool includesSubdomains = false;
    /// The path for which the cookie is sent, including all paths below it, percent-encoded as in URLs. Begins with a
    /// slash.
    std::string path = "/";
    /// When the cookie expires. Empty: at the end of the process; such a cookie is not written to a file.
    std::optional<Date> expiresDate{};
    /// Whether the cookie is sent only over https.
    bool isSecure = false;
    /// Whether the cookie is hidden from scripts of web pages; stored but without effect.
    bool isHTTPOnly = false;
    /// Empty if the server gave none or an unknown value.
    std::optional<HTTPCookieSameSite> sameSite{};

    /// Whether the cookie expires at the end of the process.
    bool isSessionOnly() const noexcept { return !expiresDate; }

    friend bool operator==(const HTTPCookie&, const HTTPCookie&) = default;
};

}  // namespace VanticRestKit
