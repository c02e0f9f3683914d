#pragma once

/// \file
/// `SetCookie`: what the value of a Set-Cookie header says.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The largest cookie, as the bytes of name and value together; a larger one is ignored.
inline constexpr std::size_t maxCookieSize = 4096;
/// The largest value of an attribute; an attribute with a larger one is ignored.
inline constexpr std::size_t maxAttributeSize = 1024;

/// What the value of a Set-Cookie header says, before it is known who sent it. Of attributes that are given more than
/// once the last valid one counts.
struct SetCookie {
    std::string name{};
    std::string value{};
    /// Without its leading dot, with its case. Empty: the host that sent the cookie, and only that host.
    std::string domain{};
    /// Empty: the folder of the request's path.
    std::string path{};
    std::optional<Date> expires{};
    /// In seconds. Takes precedence over `expires`.
    std::optional<std::int64_t> maxAge{};
    bool isSecure = false;
    bool isHTTPOnly = false;
    std::optional<HTTPCookieSameSite> sameSite{};
};

/// Reads the value of one Set-Cookie header (RFC 6265, section 5.2). The value ends at a line end or a zero byte. Empty
/// if it names no cookie, has another control character, or is too large.
std::optional<SetCookie> readSetCookie(std::string_view text);

/// Whether `text` has a control character other than a tab.
bool hasControlCharacter(std::string_view text);

}  // namespace VanticRestKit::detail
