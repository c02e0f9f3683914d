#include <VanticRestKit/platform/date/detail/DateReader.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <chrono>

namespace VanticRestKit::detail {

namespace {

/// A date and time of day, not yet validated.
struct Fields {
    int year{};
    int month{};
    int day{};
    int hour{};
    int minute{};
    int second{};
};

/// Seconds since 1970-01-01 00:00:00, or empty if there is no such date or time of day.
std::optional<std::int64_t> secondsOf(const Fields& fields) noexcept {
    const std::chrono::year_month_day date(std::chrono::year(fields.year),
                                           std::chrono::month(static_cast<unsigned>(fields.month)),
                                           std::chrono::day(static_cast<unsigned>(fields.day)));
    if (fields.year == 0 || !date.ok()) return std::nullopt;
    if (fields.hour > 23 || fields.minute > 59 || fields.second > 59) return std::nullopt;
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return days * 86400 + fields.hour * 3600 + fields.minute * 60 + fields.second;
}

constexpr std::size_t plainLength = std::string_view("yyyy-MM-dd HH:mm:ss").size();

/// Fast path for the form of nearly every date: ASCII, all fields at full width. A list of videos has hundreds of
/// dates.
bool readPlain(std::string_view text, char separator, Fields& fields) noexcept {
    if (text.size() < plainLength) return false;
    unsigned nonDigits = 0;
    const auto digit = [&](std::size_t place) {
        const unsigned value = static_cast<unsigned char>(text[place]) - unsigned{'0'};
        nonDigits |= value > 9 ? 1u : 0u;
        return static_cast<int>(value);
    };
    const auto pair = [&](std::size_t place) { return digit(place) * 10 + digit(place + 1); };
    const bool signs =
        text[4] == '-' && text[7] == '-' && text[10] == separator && text[13] == ':' && text[16] == ':';
    fields = {pair(0) * 100 + pair(2), pair(5), pair(8), pair(11), pair(14), pair(17)};
    return signs && nonDigits == 0;
}

}  // namespace

std::optional<std::int64_t> DateReader::clockSeconds(char separator) noexcept {
    Fields fields;
    if (readPlain(rest_, separator, fields)) {
        rest_.remove_prefix(plainLength);
        return secondsOf(fields);
    }
    const bool read = number(4, 4, fields.year) && take('-') && number(1, 2, fields.month) && take('-') &&
                      number(1, 2, fields.day) && take(separator) && number(1, 2, fields.hour) && take(':') &&
                      number(1, 2, fields.minute) && take(':') && number(1, 2, fields.second);
    return read ? secondsOf(fields) : std::nullopt;
}

std::optional<std::int64_t> DateReader::offset() noexcept {
    if (take('Z')) return 0;
    const bool isNegative = take('-');
    if (!isNegative && !take('+')) return std::nullopt;
    int hours = 0;
    int minutes = 0;
    if (!number(2, 2, hours) || hours > 23) return std::nullopt;
    take(':');
    if (!number(2, 2, minutes) || minutes > 59) return std::nullopt;
    const std::int64_t seconds = hours * 3600 + minutes * 60;
    return isNegative ? -seconds : seconds;
}

bool DateReader::take(char sign) noexcept {
    if (rest_.empty() || rest_.front() != sign) return false;
    rest_.remove_prefix(1);
    return true;
}

/// The value of the next character if it is a digit, of any script; else -1.
int DateReader::takeDigit() noexcept {
    if (rest_.empty()) return -1;
    const char next = rest_.front();
    if (next >= '0' && next <= '9') {
        rest_.remove_prefix(1);
        return next - '0';
    }
    if (static_cast<unsigned char>(next) < 0x80) return -1;
    const UTF8Character character = firstCharacter(rest_);
    const int digit = character.length == 0 ? -1 : decimalDigit(character.code);
    if (digit >= 0) rest_.remove_prefix(character.length);
    return digit;
}

/// Takes up to `maxDigits` digits; false if there are fewer than `minDigits`.
bool DateReader::number(int minDigits, int maxDigits, int& value) noexcept {
    value = 0;
    for (int count = 0; count < maxDigits; ++count) {
        const int digit = takeDigit();
        if (digit < 0) return count >= minDigits;
        value = value * 10 + digit;
    }
    return true;
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
