#pragma once

/// \file
/// `DateFormatter` and `ISO8601DateFormatter`: read instants from texts of a fixed pattern.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit {

/// A time zone of a fixed distance from UTC.
struct TimeZone {
    /// How many seconds the clocks of the zone are ahead of UTC.
    int secondsFromGMT{};

    /// The zone with an abbreviation, known for "UTC" and "GMT"; for another, nothing.
    VRK_EXPORT static std::optional<TimeZone> withAbbreviation(std::string_view abbreviation);

    friend bool operator==(const TimeZone&, const TimeZone&) = default;
};

/// Reads dates of the two patterns that the services use. A formatter of another pattern reads nothing.
///
/// A value like any other: any number of threads may read with one formatter as long as none changes it.
class VRK_EXPORT DateFormatter {
public:
    /// "2021-03-04T05:06:07+0000". The offset is "Z", "+hhmm" or "+hh:mm" and cannot be left out.
    static constexpr std::string_view apiPattern = "yyyy-MM-dd'T'HH:mm:ssZ";
    /// "2021-03-04 05:06:07", in the zone of the formatter.
    static constexpr std::string_view devicePattern = "yyyy-MM-dd HH:mm:ss";

    /// One of the two patterns, exactly. At first it is empty, and nothing can be read.
    std::string dateFormat{};
    /// The zone of a text that tells none itself. Empty means the zone of the device at the time of reading.
    std::optional<TimeZone> timeZone{};
    /// The identifier of a locale, such as "en_US_POSIX". Neither pattern has words, so no locale changes
    /// what is read.
    std::optional<std::string> locale{};

    /// The instant that `text`, UTF-8, names, or nothing where it does not have the form of the pattern.
    ///
    /// The year has four digits and is not 0000; every other field has one or two, of any script. The date is
    /// one of the Gregorian calendar, carried back before its time as well. There is no hour 24, no second
    /// 60 and no 30 February, and nothing may stand before or behind. A local time that the clocks of the
    /// zone skip is no date; one that they show twice is the later instant.
    std::optional<Date> date(std::string_view text) const;

    /// As `date`, after every dot with digits behind it has been taken out of `rawDate`, wherever it stands.
    /// A fraction of a second is lost in this way, not rounded.
    std::optional<Date> formattedDateWithoutMilliseconds(std::string_view rawDate) const;
};

/// Reads dates such as "2021-03-04T05:06:07Z" and "2021-03-04T05:06:07+10:00". Any thread.
class VRK_EXPORT ISO8601DateFormatter {
public:
    /// The instant that `text` names, or nothing. "T" and an offset must be there, a fraction of a second
    /// must not; the offset is "Z", "+hh:mm" or "+hhmm". Else as `DateFormatter::date`.
    std::optional<Date> date(std::string_view text) const;
};

/// The formatter of the user data service: the API pattern, UTC, "en_US_POSIX". Made on first use; any
/// thread.
VRK_EXPORT const DateFormatter& apiDateFormatter();

}  // namespace VanticRestKit
