#pragma once

/// \file
/// The date of a cookie's Expires attribute.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// Reads a date in any of the forms that servers write (RFC 6265, section 5.1.1): time, day, month and year in any
/// order, the rest ignored, the zone always UTC. A year of two digits is one of 1970 to 2069. Empty if one of the four
/// is missing or if there is no such date.
std::optional<Date> readCookieDate(std::string_view text);

}  // namespace VanticRestKit::detail
