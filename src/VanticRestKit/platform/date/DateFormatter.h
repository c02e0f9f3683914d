#pragma once

/// \file
/// `DateFormatter` and `ISO8601DateFormatter`: parse instants from strings of a fixed pattern.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit {

/// A time zone with a fixed offset from UTC.
struct TimeZone {
    /// The zone's offset from UTC in seconds; positive means ahead.
    int secondsFromGMT{};

    /// The zone with this abbreviation. Only "UTC" and "GMT" are known; empty for any other.
    VRK_EXPORT static std::optional<TimeZone> withAbbreviation(std::string_view abbreviation);

    friend bool operator==(const TimeZone&, const TimeZone&) = default;
};

/// Parses dates of the two patterns that the services use. With any other pattern, nothing is parsed.
///
/// A plain value: any number of threads may parse with one formatter as long as none modifies it.
class VRK_EXPORT DateFormatter {
public:
    /// "2021-03-04T05:06:07+0000". The offset is "Z", "+hhmm" or "+hh:mm" and is required.
    static constexpr std::string_view apiPattern = "yyyy-MM-dd'T'HH:mm:ssZ";
    /// "2021-03-04 05:06:07", in the formatter's time zone.
    static constexpr std::string_view devicePattern = "yyyy-MM-dd HH:mm:ss";

    /// One of the two patterns, exactly. Empty by default, in which case nothing can be parsed.
    std::string dateFormat{};
    /// The zone of a date that has no offset. Empty means the device's time zone at the time of parsing.
    std::optional<TimeZone> timeZone{};
    /// A locale identifier such as "en_US_POSIX". It has no effect, since neither pattern contains words.
    std::optional<std::string> locale{};

    /// The instant that `text`, in UTF-8, denotes; empty if it does not match the pattern.
    ///
    /// The year has four digits and is not 0000; every other field has one or two digits, of any script. Dates are in
    /// the proleptic Gregorian calendar. Hour 24, second 60, days that do not exist and any leading or trailing
    /// characters are rejected. A local time that the zone skips gives no date; one that occurs twice gives the later
    /// instant.
    std::optional<Date> date(std::string_view text) const;

    /// As `date`, after every dot that is followed by digits has been removed from `rawDate`, with its digits, wherever
    /// it occurs. A fraction of a second is dropped, not rounded.
    std::optional<Date> formattedDateWithoutMilliseconds(std::string_view rawDate) const;
};

/// Parses dates such as "2021-03-04T05:06:07Z" and "2021-03-04T05:06:07+10:00". Any thread.
class VRK_EXPORT ISO8601DateFormatter {
public:
    /// The instant that `text` denotes, or empty. "T" and an offset are required and a fraction of a second is
    /// rejected; the offset is "Z", "+hh:mm" or "+hhmm". Otherwise as `DateFormatter::date`.
    std::optional<Date> date(std::string_view text) const;
};

/// The formatter of the user data service: the API pattern, UTC, "en_US_POSIX". Made on first use; any
/// thread.
VRK_EXPORT const DateFormatter& apiDateFormatter();

}  // namespace VanticRestKit
