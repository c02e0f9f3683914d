#include <VanticRestKit/platform/date/detail/HTTPDate.h>

#include <VanticRestKit/platform/date/detail/DateReader.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <span>

namespace VanticRestKit::detail {

namespace {

constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> days{"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
constexpr std::array<std::string_view, 7> longDays{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                   "Friday", "Saturday", "Sunday"};

/// Takes a text apart from its front. Once a piece is not there, `isGood()` is false for good.
class Reader {
public:
    explicit Reader(std::string_view text) noexcept : rest_(text) {}

    bool isGood() const noexcept { return isGood_; }
    bool isAtEnd() const noexcept { return isGood_ && rest_.empty(); }

    /// Takes `piece`; says whether it was there.
    bool take(std::string_view piece) noexcept {
        if (!rest_.starts_with(piece)) return false;
        rest_.remove_prefix(piece.size());
        return true;
    }
    void need(std::string_view piece) noexcept { isGood_ = take(piece) && isGood_; }

    /// The place among `names`, counted from 1, of the one that stands here.
    unsigned oneOf(std::span<const std::string_view> names) noexcept {
        const auto found = std::ranges::find_if(names, [this](std::string_view name) { return take(name); });
        isGood_ = isGood_ && found != names.end();
        return static_cast<unsigned>(found - names.begin()) + 1;
    }

    int number(int digits) noexcept {
        int value = 0;
        for (int i = 0; i < digits; ++i) {
            const char next = rest_.empty() ? ' ' : rest_.front();
            if (next < '0' || next > '9') {
                isGood_ = false;
                return 0;
            }
            value = value * 10 + (next - '0');
            rest_.remove_prefix(1);
        }
        return value;
    }

private:
    std::string_view rest_;
    bool isGood_ = true;
};

struct Day {
    int year = 0;
    unsigned month = 0;
    int day = 0;
};

std::chrono::seconds timeOf(Reader& reader) noexcept {
    const int hour = reader.number(2);
    reader.need(":");
    const int minute = reader.number(2);
    reader.need(":");
    const int second = reader.number(2);
    // 60 is a leap second.
    if (hour > 23 || minute > 59 || second > 60) reader.need("a time of day");
    return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

std::optional<Date> dateOf(const Reader& reader, const Day& day, std::chrono::seconds time) noexcept {
    const std::chrono::year_month_day date(std::chrono::year(day.year), std::chrono::month(day.month),
                                           std::chrono::day(static_cast<unsigned>(day.day)));
    if (!reader.isAtEnd() || !date.ok()) return std::nullopt;
    const std::int64_t midnight =
        std::chrono::sys_days(date).time_since_epoch().count() * std::int64_t{86400};
    return dateOfSeconds(midnight + time.count());
}

/// The year of two digits that lies at most fifty years after `now`, and less than fifty before.
int fullYear(int lastDigits, Date now) noexcept {
    // Beyond these years a date has no four digits.
    const double seconds = std::clamp(now.time_since_epoch().count(), -6e10, 2.5e11);
    const auto today = std::chrono::floor<std::chrono::days>(
        std::chrono::sys_seconds(std::chrono::seconds(static_cast<std::int64_t>(seconds))));
    const int thisYear = static_cast<int>(std::chrono::year_month_day(today).year());
    int year = thisYear - thisYear % 100 + lastDigits;
    if (year > thisYear + 50) year -= 100;
    if (year <= thisYear - 50) year += 100;
    return year;
}

/// "06 Nov 1994 08:49:37 GMT", after the day of the week.
std::optional<Date> usualDate(Reader reader) noexcept {
    Day day;
    day.day = reader.number(2);
    reader.need(" ");
    day.month = reader.oneOf(months);
    reader.need(" ");
    day.year = reader.number(4);
    reader.need(" ");
    const std::chrono::seconds time = timeOf(reader);
    reader.need(" GMT");
    return dateOf(reader, day, time);
}

/// "06-Nov-94 08:49:37 GMT", after the day of the week.
std::optional<Date> dateWithDashes(Reader reader, Date now) noexcept {
    Day day;
    day.day = reader.number(2);
    reader.need("-");
    day.month = reader.oneOf(months);
    reader.need("-");
    day.year = fullYear(reader.number(2), now);
    reader.need(" ");
    const std::chrono::seconds time = timeOf(reader);
    reader.need(" GMT");
    return dateOf(reader, day, time);
}

/// "Nov  6 08:49:37 1994", after the day of the week.
std::optional<Date> dateOfC(Reader reader) noexcept {
    Day day;
    day.month = reader.oneOf(months);
    reader.need(" ");
    day.day = reader.take(" ") ? reader.number(1) : reader.number(2);
    reader.need(" ");
    const std::chrono::seconds time = timeOf(reader);
    reader.need(" ");
    day.year = reader.number(4);
    return dateOf(reader, day, time);
}

}  // namespace

std::optional<Date> httpDate(std::string_view text, Date now) noexcept {
    Reader withLongDay(text);
    withLongDay.oneOf(longDays);
    withLongDay.need(", ");
    if (withLongDay.isGood()) return dateWithDashes(withLongDay, now);
    Reader reader(text);
    reader.oneOf(days);
    if (reader.take(", ")) return reader.isGood() ? usualDate(reader) : std::nullopt;
    reader.need(" ");
    return reader.isGood() ? dateOfC(reader) : std::nullopt;
}

}  // namespace VanticRestKit::detail
