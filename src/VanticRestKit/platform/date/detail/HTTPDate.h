#pragma once

/// \file
/// Reads and writes the dates of HTTP header fields.

#include <VanticRestKit/platform/date/Date.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The date in `text`, in seconds since 1970. Empty if `text` is not a date.
///
/// Accepts the three formats of HTTP, ignoring case as caches should:
/// "Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT" and "Sun Nov  6 08:49:37 1994". All other formats
/// and all zones except GMT are rejected. The day of the week is not compared with the date. A two-digit year is the
/// latest one that is at most 50 years after `now`.
std::optional<std::chrono::seconds> parseHTTPDate(std::string_view text, std::chrono::seconds now) noexcept;

/// The same for a `Date`, which may be any double.
std::optional<Date> httpDate(std::string_view text, Date now) noexcept;

/// `date`, of a year from 0 to 9999, in the first of these formats.
std::string formatHTTPDate(std::chrono::seconds date);

}  // namespace VanticRestKit::detail
