#pragma once

/// \file
/// Reads the dates of HTTP headers.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// The instant of the text of a header, in any of the three forms that a recipient must read:
/// "Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT" and "Sun Nov  6 08:49:37 1994". Nothing for
/// another text. The day of the week is not compared with the date. A year of two digits is the one nearest to `now`
/// that lies at most fifty years after it.
std::optional<Date> httpDate(std::string_view text, Date now) noexcept;

}  // namespace VanticRestKit::detail
