#pragma once

/// \file
/// `SetCookie`: a parsed Set-Cookie header.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The maximum size of name and value together, in bytes; a larger cookie is ignored.
inline constexpr std::size_t maxCookieSize = 4096;
/// The maximum size of an attribute's value, in bytes; an attribute with a larger one is ignored.
inline constexpr std::size_t maxAttributeSize = 1024;

/// The value of a Set-Cookie header, independent of its sender. The last valid one of repeated attributes is used.
struct SetCookie {
    std::string name{};
    std::string value{};
    /// Without its leading dot, in its original case. Empty: only the host that sent the cookie.
    std::string domain{};
    /// Empty: the directory of the request's path.
    std::string path{};
    std::optional<Date> expires{};
    /// In seconds. Takes precedence over `expires`.
    std::optional<std::int64_t> maxAge{};
    bool isSecure = false;
    bool isHTTPOnly = false;
    std::optional<HTTPCookieSameSite> sameSite{};
};

/// Parses the value of one Set-Cookie header (RFC 6265, section 5.2). The value ends at a line end or a zero byte.
/// Empty if it names no cookie, contains another control character, or is too large.
std::optional<SetCookie> readSetCookie(std::string_view text);

/// Whether `text` has a control character other than a tab.
bool hasControlCharacter(std::string_view text);

}  // namespace VanticRestKit::detail
