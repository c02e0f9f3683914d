#include <VanticRestKit/platform/http/cookies/detail/CookieRules.h>

#include <VanticRestKit/platform/http/cookies/detail/PublicSuffix.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <chrono>
#include <string_view>
#include <utility>

namespace VanticRestKit::detail {

namespace {

bool beginsWithPrefix(std::string_view name, std::string_view prefix) {
    return sameHeaderName(name.substr(0, prefix.size()), prefix);
}

/// Whether the cookie meets the requirements of its name's prefix.
bool meetsPrefixRules(const HTTPCookie& cookie, const SetCookie& parsed) {
    if (beginsWithPrefix(cookie.name, "__Host-")) {
        return cookie.isSecure && !cookie.includesSubdomains && parsed.domain.empty() && parsed.path == "/";
    }
    return cookie.isSecure || !beginsWithPrefix(cookie.name, "__Secure-");
}

std::optional<Date> expiryOf(const SetCookie& parsed, Date now) {
    if (!parsed.maxAge) return parsed.expires;
    if (*parsed.maxAge <= 0) return Date::min();
    return now + std::chrono::duration<double>(static_cast<double>(*parsed.maxAge));
}

/// Sets the cookie's domain. Returns false if the sender may not set cookies for it.
bool setDomain(HTTPCookie& cookie, const SetCookie& parsed, const CookieTarget& sender) {
    cookie.domain = sender.host;
    if (parsed.domain.empty()) return true;
    std::string domain = canonicalHost(parsed.domain);
    if (domain.starts_with('.') || !domainMatches(sender.host, domain)) return false;
    // A public suffix is shared by many owners; but a host that is itself a suffix may have its own cookies.
    if (isIPAddress(sender.host) || isPublicSuffix(domain)) return domain == sender.host;
    cookie.domain = std::move(domain);
    cookie.includesSubdomains = true;
    return true;
}

}  // namespace

std::optional<HTTPCookie> acceptedCookie(const SetCookie& parsed, const CookieTarget& sender, Date now) {
    HTTPCookie cookie;
    // A leading dot has a special meaning in a cookie's domain, and no real host has one.
    if (sender.host.empty() || sender.host.starts_with('.') || !setDomain(cookie, parsed, sender))
        return std::nullopt;
    // Over http, an attacker could have set it.
    if (parsed.isSecure && !sender.isSecure) return std::nullopt;
    cookie.name = parsed.name;
    cookie.value = parsed.value;
    cookie.path = parsed.path.empty() ? defaultPath(sender.path) : parsed.path;
    cookie.expiresDate = expiryOf(parsed, now);
    cookie.isSecure = parsed.isSecure;
    cookie.isHTTPOnly = parsed.isHTTPOnly;
    cookie.sameSite = parsed.sameSite;
    if (!meetsPrefixRules(cookie, parsed)) return std::nullopt;
    return cookie;
}

std::optional<HTTPCookie> canonicalCookie(HTTPCookie cookie) {
    const auto isMalformed = [](std::string_view text, std::string_view separators) {
        return hasControlCharacter(text) || text.find_first_of(separators) != std::string_view::npos ||
               trimmed(text).size() != text.size();
    };
    if (cookie.name.empty() || isMalformed(cookie.name, "=;") || isMalformed(cookie.value, ";"))
        return std::nullopt;
    if (cookie.name.size() + cookie.value.size() > maxCookieSize) return std::nullopt;
    if (!cookie.path.starts_with('/') || isMalformed(cookie.path, "")) return std::nullopt;
    std::string_view domain = cookie.domain;
    if (domain.starts_with('.')) {
        domain.remove_prefix(1);
        cookie.includesSubdomains = true;
    }
    cookie.domain = canonicalHost(domain);
    if (cookie.domain.empty() || isMalformed(cookie.domain, ";/") ||
        cookie.domain.size() > maxAttributeSize) {
        return std::nullopt;
    }
    if (cookie.includesSubdomains && (isIPAddress(cookie.domain) || isPublicSuffix(cookie.domain)))
        return std::nullopt;
    return cookie;
}

}  // namespace VanticRestKit::detail
