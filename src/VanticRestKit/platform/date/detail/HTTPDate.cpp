#include <VanticRestKit/platform/date/detail/HTTPDate.h>

#include <VanticRestKit/platform/date/detail/DateReader.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace VanticRestKit::detail {

namespace {

using std::chrono::seconds;

constexpr std::array<std::string_view, 7> weekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr char lower(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The last second of the year 9999, the last year that has four digits.
constexpr seconds lastDate{253'402'300'799};

/// Parses a string from its beginning. After a missing part, `isGood()` stays false.
class Reader {
public:
    explicit Reader(std::string_view text) noexcept : rest_(text) {}

    bool isGood() const noexcept { return isGood_; }
    bool isAtEnd() const noexcept { return isGood_ && rest_.empty(); }

    /// Consumes `piece` if it is next, ignoring case.
    bool take(std::string_view piece) noexcept {
        if (!isNext(piece)) return false;
        rest_.remove_prefix(piece.size());
        return true;
    }
    void need(std::string_view piece) noexcept { isGood_ = take(piece) && isGood_; }
    void fail() noexcept { isGood_ = false; }

    /// The index of the next name, of which only the first `letters` letters are written, or all if `letters` is 0.
    template <std::size_t count>
    unsigned oneOf(const std::array<std::string_view, count>& names, std::size_t letters = 0) noexcept {
        for (unsigned i = 0; i < count; ++i) {
            if (take(letters == 0 ? names[i] : names[i].substr(0, letters))) return i;
        }
        isGood_ = false;
        return 0;
    }

    int number(std::size_t digits) noexcept {
        if (rest_.size() < digits) {
            isGood_ = false;
            return 0;
        }
        int value = 0;
        for (std::size_t i = 0; i < digits; ++i) {
            const char c = rest_[i];
            isGood_ = isGood_ && c >= '0' && c <= '9';
            value = value * 10 + (c - '0');
        }
        rest_.remove_prefix(digits);
        return value;
    }

private:
    bool isNext(std::string_view piece) const noexcept {
        if (rest_.size() < piece.size()) return false;
        for (std::size_t i = 0; i < piece.size(); ++i) {
            if (lower(rest_[i]) != lower(piece[i])) return false;
        }
        return true;
    }

    std::string_view rest_;
    bool isGood_ = true;
};

struct Day {
    int year = 0;
    unsigned month = 0;
    int day = 0;
};

seconds timeOf(Reader& reader) noexcept {
    const int hour = reader.number(2);
    reader.need(":");
    const int minute = reader.number(2);
    reader.need(":");
    const int second = reader.number(2);
    // 60 is a leap second.
    if (hour > 23 || minute > 59 || second > 60) reader.fail();
    return std::chrono::hours(hour) + std::chrono::minutes(minute) + seconds(second);
}

std::optional<seconds> dateOf(const Reader& reader, const Day& day, seconds time) noexcept {
    if (!reader.isAtEnd()) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(day.year), std::chrono::month(day.month + 1),
                                           std::chrono::day(static_cast<unsigned>(day.day)));
    if (!date.ok()) return std::nullopt;
    // A leap second can lie beyond.
    return std::min<seconds>(std::chrono::sys_days(date).time_since_epoch() + time, lastDate);
}

/// The year with these last two digits that is at most fifty years after `now` and less than fifty before.
int fullYear(int lastDigits, seconds now) noexcept {
    // Outside this range a year does not have four digits.
    const seconds known = std::clamp(now, seconds(-60'000'000'000), seconds(250'000'000'000));
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::sys_seconds(known));
    const int thisYear = static_cast<int>(std::chrono::year_month_day(today).year());
    int year = thisYear - thisYear % 100 + lastDigits;
    if (year > thisYear + 50) year -= 100;
    if (year <= thisYear - 50) year += 100;
    return year;
}

/// "06 Nov 1994 08:49:37 GMT", after the day of the week.
std::optional<seconds> usualDate(Reader reader) noexcept {
    Day day;
    day.day = reader.number(2);
    reader.need(" ");
    day.month = reader.oneOf(months);
    reader.need(" ");
    day.year = reader.number(4);
    reader.need(" ");
    const seconds time = timeOf(reader);
    reader.need(" GMT");
    return dateOf(reader, day, time);
}

/// "06-Nov-94 08:49:37 GMT", after the day of the week.
std::optional<seconds> dateWithDashes(Reader reader, seconds now) noexcept {
    Day day;
    day.day = reader.number(2);
    reader.need("-");
    day.month = reader.oneOf(months);
    reader.need("-");
    day.year = fullYear(reader.number(2), now);
    reader.need(" ");
    const seconds time = timeOf(reader);
    reader.need(" GMT");
    return dateOf(reader, day, time);
}

/// "Nov  6 08:49:37 1994", after the day of the week.
std::optional<seconds> dateOfC(Reader reader) noexcept {
    Day day;
    day.month = reader.oneOf(months);
    reader.need(" ");
    day.day = reader.take(" ") ? reader.number(1) : reader.number(2);
    reader.need(" ");
    const seconds time = timeOf(reader);
    reader.need(" ");
    day.year = reader.number(4);
    return dateOf(reader, day, time);
}

void addDigits(std::string& to, unsigned number, unsigned first) {
    for (unsigned place = first; place > 0; place /= 10) to += static_cast<char>('0' + number / place % 10);
}

}  // namespace

std::optional<seconds> parseHTTPDate(std::string_view text, seconds now) noexcept {
    constexpr std::size_t shortName = 3;
    Reader reader(text);
    const unsigned weekday = reader.oneOf(weekdays, shortName);
    if (!reader.isGood()) return std::nullopt;
    if (reader.take(", ")) return usualDate(reader);
    if (reader.take(" ")) return dateOfC(reader);
    reader.need(weekdays[weekday].substr(shortName));
    reader.need(", ");
    return reader.isGood() ? dateWithDashes(reader, now) : std::nullopt;
}

std::optional<Date> httpDate(std::string_view text, Date now) noexcept {
    const double today = std::clamp(now.time_since_epoch().count(), -6e10, 2.5e11);
    const auto found = parseHTTPDate(text, seconds(static_cast<std::int64_t>(today)));
    if (!found) return std::nullopt;
    return dateOfSeconds(found->count());
}

// Formatting by the C library would take longer than parsing the whole head of an answer.
std::string formatHTTPDate(seconds date) {
    const auto days = std::chrono::floor<std::chrono::days>(date);
    const std::chrono::sys_days day(days);
    const std::chrono::year_month_day ymd(day);
    const std::chrono::hh_mm_ss time(date - days);
    std::string text(weekdays[std::chrono::weekday(day).c_encoding()].substr(0, 3));
    text.reserve(std::string_view("Sun, 06 Nov 1994 08:49:37 GMT").size());
    text += ", ";
    addDigits(text, static_cast<unsigned>(ymd.day()), 10);
    text += ' ';
    text += months[static_cast<unsigned>(ymd.month()) - 1];
    text += ' ';
    addDigits(text, static_cast<unsigned>(static_cast<int>(ymd.year())), 1000);
    text += ' ';
    addDigits(text, static_cast<unsigned>(time.hours().count()), 10);
    text += ':';
    addDigits(text, static_cast<unsigned>(time.minutes().count()), 10);
    text += ':';
    addDigits(text, static_cast<unsigned>(time.seconds().count()), 10);
    text += " GMT";
    return text;
}

}  // namespace VanticRestKit::detail
