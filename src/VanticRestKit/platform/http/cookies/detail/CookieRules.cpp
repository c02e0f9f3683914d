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

/// Whether the cookie has what the prefix of its name promises.
bool keepsItsPromise(const HTTPCookie& cookie, const SetCookie& said) {
    if (beginsWithPrefix(cookie.name, "__Host-")) {
        return cookie.isSecure && !cookie.includesSubdomains && said.domain.empty() && said.path == "/";
    }
    return cookie.isSecure || !beginsWithPrefix(cookie.name, "__Secure-");
}

std::optional<Date> expiryOf(const SetCookie& said, Date now) {
    if (!said.maxAge) return said.expires;
    if (*said.maxAge <= 0) return Date::min();
    return now + std::chrono::duration<double>(static_cast<double>(*said.maxAge));
}

/// Sets whom the cookie is for. Returns false if it is for a domain that the sender may not set cookies for.
bool setDomain(HTTPCookie& cookie, const SetCookie& said, const CookieTarget& sender) {
    cookie.domain = sender.host;
    if (said.domain.empty()) return true;
    std::string domain = canonicalHost(said.domain);
    if (domain.starts_with('.') || !domainMatches(sender.host, domain)) return false;
    // What is registered below a suffix belongs to someone else; a host that is itself a suffix has its own cookies.
    if (isIPAddress(sender.host) || isPublicSuffix(domain)) return domain == sender.host;
    cookie.domain = std::move(domain);
    cookie.includesSubdomains = true;
    return true;
}

}  // namespace

std::optional<HTTPCookie> acceptedCookie(const SetCookie& said, const CookieTarget& sender, Date now) {
    HTTPCookie cookie;
    // A leading dot has a meaning of its own in a cookie's domain, and no host has one.
    if (sender.host.empty() || sender.host.starts_with('.') || !setDomain(cookie, said, sender))
        return std::nullopt;
    // Someone on the way could have set it.
    if (said.isSecure && !sender.isSecure) return std::nullopt;
    cookie.name = said.name;
    cookie.value = said.value;
    cookie.path = said.path.empty() ? defaultPath(sender.path) : said.path;
    cookie.expiresDate = expiryOf(said, now);
    cookie.isSecure = said.isSecure;
    cookie.isHTTPOnly = said.isHTTPOnly;
    cookie.sameSite = said.sameSite;
    if (!keepsItsPromise(cookie, said)) return std::nullopt;
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
