#include <VanticRestKit/platform/http/cookies/detail/SetCookie.h>

#include <VanticRestKit/platform/http/cookies/detail/CookieDate.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace VanticRestKit::detail {

namespace {

/// Removes and returns the part of `text` before the first `separator`, and removes the separator; takes all of `text`
/// if there is none.
std::string_view takeUntil(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

std::optional<std::int64_t> readMaxAge(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / 100;
    std::int64_t seconds = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        seconds = std::min(seconds * 10 + (c - '0'), limit);
    }
    return isNegative ? -seconds : seconds;
}

std::optional<HTTPCookieSameSite> readSameSite(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, HTTPCookieSameSite>, 3> known{
        {{"none", HTTPCookieSameSite::none},
         {"lax", HTTPCookieSameSite::lax},
         {"strict", HTTPCookieSameSite::strict}}};
    for (const auto& [name, value] : known) {
        if (sameHeaderName(text, name)) return value;
    }
    return std::nullopt;
}

void apply(SetCookie& cookie, std::string_view name, std::string_view value) {
    if (value.size() > maxAttributeSize) return;
    if (sameHeaderName(name, "expires")) {
        if (const auto date = readCookieDate(value)) cookie.expires = date;
    } else if (sameHeaderName(name, "max-age")) {
        if (const auto seconds = readMaxAge(value)) cookie.maxAge = seconds;
    } else if (sameHeaderName(name, "domain")) {
        // An empty Domain restricts the cookie to its host again, as in browsers.
        if (value.starts_with('.')) value.remove_prefix(1);
        cookie.domain = value;
    } else if (sameHeaderName(name, "path")) {
        cookie.path = value.starts_with('/') ? value : std::string_view();
    } else if (sameHeaderName(name, "secure")) {
        cookie.isSecure = true;
    } else if (sameHeaderName(name, "httponly")) {
        cookie.isHTTPOnly = true;
    } else if (sameHeaderName(name, "samesite")) {
        cookie.sameSite = readSameSite(value);
    }
}

}  // namespace

bool hasControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte < 0x20 && byte != '\t') || byte == 0x7F;
    });
}

std::optional<SetCookie> readSetCookie(std::string_view text) {
    constexpr std::string_view ends("\0\r\n", 3);
    text = text.substr(0, text.find_first_of(ends));
    if (hasControlCharacter(text)) return std::nullopt;
    std::string_view pair = takeUntil(text, ';');
    if (pair.find('=') == std::string_view::npos) return std::nullopt;
    SetCookie cookie;
    cookie.name = trimmed(takeUntil(pair, '='));
    cookie.value = trimmed(pair);
    if (cookie.name.empty() || cookie.name.size() + cookie.value.size() > maxCookieSize) return std::nullopt;
    while (!text.empty()) {
        std::string_view attribute = takeUntil(text, ';');
        const std::string_view name = trimmed(takeUntil(attribute, '='));
        apply(cookie, name, trimmed(attribute));
    }
    return cookie;
}

}  // namespace VanticRestKit::detail
