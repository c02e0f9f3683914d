#pragma once

/// \file
/// The form of a cookie file.

#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The file of `cookies`, all of which have an `expiresDate`: a line that names the form, a line for each cookie, and a
/// line with the check sum of all lines before it.
std::string cookieFileText(const std::vector<HTTPCookie>& cookies);

/// The cookies of a file. Empty if it is not a whole one of this form.
std::optional<std::vector<HTTPCookie>> readCookieFileText(std::string_view text);

}  // namespace VanticRestKit::detail
