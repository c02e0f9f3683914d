#pragma once

/// \file
/// Walks through the text of a date, field by field.

#include <VanticRestKit/platform/date/Date.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// Each member takes one piece off the front of the text. Where the piece is not there it says so; how far it
/// got is then of no interest, as the text is no date.
class DateReader {
public:
    explicit DateReader(std::string_view text) noexcept : rest_(text) {}

    /// "yyyy-MM-dd", the separator and "HH:mm:ss": the seconds since 1970-01-01 00:00:00 that the clocks
    /// show, as though they were those of UTC.
    std::optional<std::int64_t> clockSeconds(char separator) noexcept;

    /// "Z", "+hhmm" or "+hh:mm": how many seconds the clocks are ahead of UTC.
    std::optional<std::int64_t> offset() noexcept;

    bool atEnd() const noexcept { return rest_.empty(); }

private:
    bool take(char sign) noexcept;
    int takeDigit() noexcept;
    bool number(int fewestDigits, int mostDigits, int& value) noexcept;

    std::string_view rest_;
};

/// The instant `seconds` after 1970-01-01 00:00:00 UTC.
inline Date dateOfSeconds(std::int64_t seconds) noexcept {
    return Date(std::chrono::duration<double>(static_cast<double>(seconds)));
}

/// The instant of a text such as "2021-03-04T05:06:07+10:00", from its first byte to its last, or nothing.
std::optional<Date> dateWithOffset(std::string_view text) noexcept;

}  // namespace VanticRestKit::detail
