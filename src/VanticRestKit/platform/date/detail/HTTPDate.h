#pragma once

/// \file
/// Reads and writes the dates of HTTP header fields.

#include <VanticRestKit/platform/date/Date.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The date that `text` is, in seconds since 1970; empty if it is none.
///
/// Accepts the three forms of HTTP, with letters of either case as caches are asked to:
/// "Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT" and "Sun Nov  6 08:49:37 1994". Every other form,
/// and every zone but GMT, is no date. The day of the week is not compared with the date. A year of two digits is the
/// one nearest to `now` that is at most 50 years ahead.
std::optional<std::chrono::seconds> parseHTTPDate(std::string_view text, std::chrono::seconds now) noexcept;

/// The same for a `Date`, which may be any double.
std::optional<Date> httpDate(std::string_view text, Date now) noexcept;

/// `date`, of a year from 0 to 9999, in the first of those forms.
std::string formatHTTPDate(std::chrono::seconds date);

}  // namespace VanticRestKit::detail
