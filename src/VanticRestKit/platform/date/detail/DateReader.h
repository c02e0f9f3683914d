#pragma once

/// \file
/// `DateReader`: parses a date field by field.

#include <VanticRestKit/platform/date/Date.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// Each member consumes one part at the start of the string. If the part is missing, the string is not a date, and the
/// position no longer matters.
class DateReader {
public:
    explicit DateReader(std::string_view text) noexcept : rest_(text) {}

    /// "yyyy-MM-dd", the separator and "HH:mm:ss": the seconds since 1970-01-01 00:00:00, as if the local time were
    /// UTC.
    std::optional<std::int64_t> clockSeconds(char separator) noexcept;

    /// "Z", "+hhmm" or "+hh:mm": the offset from UTC in seconds.
    std::optional<std::int64_t> offset() noexcept;

    bool atEnd() const noexcept { return rest_.empty(); }

private:
    bool take(char sign) noexcept;
    int takeDigit() noexcept;
    bool number(int minDigits, int maxDigits, int& value) noexcept;

    std::string_view rest_;
};

/// The instant `seconds` after 1970-01-01 00:00:00 UTC.
inline Date dateOfSeconds(std::int64_t seconds) noexcept {
    return Date(std::chrono::duration<double>(static_cast<double>(seconds)));
}

/// The instant of a string such as "2021-03-04T05:06:07+10:00", or empty if it does not match as a whole.
std::optional<Date> dateWithOffset(std::string_view text) noexcept;

}  // namespace VanticRestKit::detail
