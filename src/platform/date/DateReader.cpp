#include <VanticRestKit/platform/date/detail/DateReader.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/Utf8.h>

#include <chrono>

namespace VanticRestKit::detail {

namespace {

/// The days from 1970-01-01 to a date, or nothing where the calendar has no such date.
std::optional<std::int64_t> days(int year, int month, int day) noexcept {
    const std::chrono::year_month_day date(std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (year == 0 || !date.ok()) return std::nullopt;
    return std::chrono::sys_days(date).time_since_epoch().count();
}

}  // namespace

std::optional<std::int64_t> DateReader::clockSeconds(char separator) noexcept {
    const auto year = number(4, 4);
    if (!year || !take('-')) return std::nullopt;
    const auto month = number(1, 2);
    if (!month || !take('-')) return std::nullopt;
    const auto day = number(1, 2);
    if (!day || !take(separator)) return std::nullopt;
    const auto hour = number(1, 2);
    if (!hour || *hour > 23 || !take(':')) return std::nullopt;
    const auto minute = number(1, 2);
    if (!minute || *minute > 59 || !take(':')) return std::nullopt;
    const auto second = number(1, 2);
    if (!second || *second > 59) return std::nullopt;
    const auto daysBefore = days(*year, *month, *day);
    if (!daysBefore) return std::nullopt;
    return *daysBefore * 86400 + *hour * 3600 + *minute * 60 + *second;
}

std::optional<std::int64_t> DateReader::offset() noexcept {
    if (take('Z')) return 0;
    const bool behind = take('-');
    if (!behind && !take('+')) return std::nullopt;
    const auto hours = number(2, 2);
    if (!hours || *hours > 23) return std::nullopt;
    take(':');
    const auto minutes = number(2, 2);
    if (!minutes || *minutes > 59) return std::nullopt;
    const std::int64_t seconds = *hours * 3600 + *minutes * 60;
    return behind ? -seconds : seconds;
}

bool DateReader::take(char sign) noexcept {
    if (rest_.empty() || rest_.front() != sign) return false;
    rest_.remove_prefix(1);
    return true;
}

/// The value of the digit that stands next, of any script, or -1.
int DateReader::takeDigit() noexcept {
    if (rest_.empty()) return -1;
    const char next = rest_.front();
    if (next >= '0' && next <= '9') {
        rest_.remove_prefix(1);
        return next - '0';
    }
    if (static_cast<unsigned char>(next) < 0x80) return -1;
    const Utf8Character character = firstCharacter(rest_);
    const int digit = character.length == 0 ? -1 : decimalDigit(character.code);
    if (digit >= 0) rest_.remove_prefix(character.length);
    return digit;
}

std::optional<int> DateReader::number(int fewestDigits, int mostDigits) noexcept {
    int value = 0;
    for (int count = 0; count < mostDigits; ++count) {
        const int digit = takeDigit();
        if (digit < 0) return count < fewestDigits ? std::nullopt : std::optional(value);
        value = value * 10 + digit;
    }
    return value;
}

std::optional<Date> dateWithOffset(std::string_view text) noexcept {
    DateReader reader(text);
    const auto clockSeconds = reader.clockSeconds('T');
    if (!clockSeconds) return std::nullopt;
    const auto offset = reader.offset();
    if (!offset || !reader.atEnd()) return std::nullopt;
    return dateOfSeconds(*clockSeconds - *offset);
}

}  // namespace VanticRestKit::detail
