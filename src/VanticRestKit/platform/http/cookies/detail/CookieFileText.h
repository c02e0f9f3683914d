#pragma once

/// \file
/// The format of a cookie file.

#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The contents of a file with `cookies`, all of which have an `expiresDate`: a line that names the format, a line for
/// each cookie, and a line with the checksum of all lines before it.
std::string cookieFileText(const std::vector<HTTPCookie>& cookies);

/// The cookies of a file. No value if it is not a complete file of this format.
std::optional<std::vector<HTTPCookie>> readCookieFileText(std::string_view text);

}  // namespace VanticRestKit::detail
