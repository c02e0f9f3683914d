#include <VanticRestKit/platform/http/cache/detail/HTTPDate.h>

#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace VanticRestKit::detail {

namespace {

using std::chrono::seconds;

constexpr std::array<std::string_view, 7> weekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Reads a text from its start; after the first failure everything fails.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    void literal(std::string_view expected) {
        isGood_ = isGood_ && sameHeaderName(rest_.substr(0, expected.size()), expected);
        if (isGood_) rest_.remove_prefix(expected.size());
    }

    int number(std::size_t digits) {
        int value = 0;
        isGood_ = isGood_ && rest_.size() >= digits;
        for (std::size_t i = 0; isGood_ && i < digits; ++i) {
            const char c = rest_[i];
            isGood_ = c >= '0' && c <= '9';
            value = value * 10 + (c - '0');
        }
        if (isGood_) rest_.remove_prefix(digits);
        return value;
    }

    /// The position of the name in `names` whose first `size` letters follow; all letters for 0.
    template <std::size_t count>
    unsigned oneOf(const std::array<std::string_view, count>& names, std::size_t size = 0) {
        for (unsigned i = 0; isGood_ && i < count; ++i) {
            const std::string_view name = size == 0 ? names[i] : names[i].substr(0, size);
            if (!sameHeaderName(rest_.substr(0, name.size()), name)) continue;
            rest_.remove_prefix(name.size());
            return i;
        }
        isGood_ = false;
        return 0;
    }

    bool next(char c) const { return !rest_.empty() && rest_.front() == c; }
    bool hasEnded() const { return isGood_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool isGood_ = true;
};

struct Fields {
    int year = 0;
    unsigned month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    void readTime(Reader& reader) {
        hour = reader.number(2);
        reader.literal(":");
        minute = reader.number(2);
        reader.literal(":");
        second = reader.number(2);
    }

    std::optional<seconds> date() const {
        const std::chrono::year_month_day ymd{std::chrono::year(year), std::chrono::month(month + 1),
                                              std::chrono::day(static_cast<unsigned>(day))};
        // 60 is a leap second.
        if (!ymd.ok() || hour > 23 || minute > 59 || second > 60) return std::nullopt;
        return std::chrono::sys_days(ymd).time_since_epoch() + std::chrono::hours(hour) +
               std::chrono::minutes(minute) + seconds(second);
    }
};

std::optional<seconds> usualForm(std::string_view text) {
    Reader reader(text);
    Fields fields;
    reader.oneOf(weekdays, 3);
    reader.literal(", ");
    fields.day = reader.number(2);
    reader.literal(" ");
    fields.month = reader.oneOf(months);
    reader.literal(" ");
    fields.year = reader.number(4);
    reader.literal(" ");
    fields.readTime(reader);
    reader.literal(" GMT");
    return reader.hasEnded() ? fields.date() : std::nullopt;
}

int yearNow(seconds now) {
    const auto days = std::chrono::floor<std::chrono::days>(now);
    return static_cast<int>(std::chrono::year_month_day(std::chrono::sys_days(days)).year());
}

std::optional<seconds> formOfRFC850(std::string_view text, seconds now) {
    Reader reader(text);
    Fields fields;
    reader.oneOf(weekdays);
    reader.literal(", ");
    fields.day = reader.number(2);
    reader.literal("-");
    fields.month = reader.oneOf(months);
    reader.literal("-");
    const int thisYear = yearNow(now);
    fields.year = thisYear / 100 * 100 + reader.number(2);
    if (fields.year > thisYear + 50) fields.year -= 100;
    if (fields.year <= thisYear - 50) fields.year += 100;
    reader.literal(" ");
    fields.readTime(reader);
    reader.literal(" GMT");
    return reader.hasEnded() ? fields.date() : std::nullopt;
}

std::optional<seconds> formOfAsctime(std::string_view text) {
    Reader reader(text);
    Fields fields;
    reader.oneOf(weekdays, 3);
    reader.literal(" ");
    fields.month = reader.oneOf(months);
    reader.literal(" ");
    if (reader.next(' ')) {
        reader.literal(" ");
        fields.day = reader.number(1);
    } else {
        fields.day = reader.number(2);
    }
    reader.literal(" ");
    fields.readTime(reader);
    reader.literal(" ");
    fields.year = reader.number(4);
    return reader.hasEnded() ? fields.date() : std::nullopt;
}

}  // namespace

std::optional<seconds> parseHTTPDate(std::string_view text, seconds now) {
    if (const auto date = usualForm(text)) return date;
    if (const auto date = formOfRFC850(text, now)) return date;
    return formOfAsctime(text);
}

std::string formatHTTPDate(seconds date) {
    const auto days = std::chrono::floor<std::chrono::days>(date);
    const std::chrono::sys_days day(days);
    const std::chrono::year_month_day ymd(day);
    const std::chrono::hh_mm_ss time(date - days);
    const std::string_view weekday = weekdays[std::chrono::weekday(day).c_encoding()];
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.3s, %02u %s %04d %02d:%02d:%02d GMT", weekday.data(),
                  static_cast<unsigned>(ymd.day()), months[static_cast<unsigned>(ymd.month()) - 1].data(),
                  static_cast<int>(ymd.year()), static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return text.data();
}

}  // namespace VanticRestKit::detail
