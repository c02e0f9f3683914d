#pragma once

/// \file
/// The date of a cookie's Expires attribute.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// Parses a date in any of the formats that servers use (RFC 6265, section 5.1.1): time, day, month and year in any
/// order; the rest is ignored, and the zone is always UTC. A two-digit year is in 1970 to 2069. Empty if one of the
/// four is missing or the date does not exist.
std::optional<Date> readCookieDate(std::string_view text);

}  // namespace VanticRestKit::detail
