#include <VanticRestKit/platform/http/cookies/detail/CookieDate.h>

#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <array>
#include <chrono>
#include <cstddef>

namespace VanticRestKit::detail {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isDelimiter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte == 0x09 || (byte >= 0x20 && byte <= 0x2F) || (byte >= 0x3B && byte <= 0x40) ||
           (byte >= 0x5B && byte <= 0x60) || (byte >= 0x7B && byte <= 0x7E);
}

/// Removes a number of `min` to `max` digits from the beginning of `text`. Empty if there are fewer digits or more.
std::optional<int> takeNumber(std::string_view& text, std::size_t min, std::size_t max) {
    std::size_t length = 0;
    int number = 0;
    while (length < text.size() && isDigit(text[length])) {
        if (length == max) return std::nullopt;
        number = number * 10 + (text[length] - '0');
        ++length;
    }
    if (length < min) return std::nullopt;
    text.remove_prefix(length);
    return number;
}

struct Time {
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
};

std::optional<Time> timeOf(std::string_view token) {
    std::array<int, 3> fields{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) {
            if (!token.starts_with(':')) return std::nullopt;
            token.remove_prefix(1);
        }
        const auto number = takeNumber(token, 1, 2);
        if (!number) return std::nullopt;
        fields[i] = *number;
    }
    return Time{fields[0], fields[1], fields[2]};
}

std::optional<unsigned> monthOf(std::string_view token) {
    constexpr std::array<std::string_view, 12> months{"jan", "feb", "mar", "apr", "may", "jun",
                                                      "jul", "aug", "sep", "oct", "nov", "dec"};
    for (std::size_t i = 0; i < months.size(); ++i) {
        if (sameHeaderName(token.substr(0, 3), months[i])) return static_cast<unsigned>(i + 1);
    }
    return std::nullopt;
}

/// The first token of each kind.
struct Parts {
    std::optional<Time> time{};
    std::optional<int> day{};
    std::optional<unsigned> month{};
    std::optional<int> year{};

    void take(std::string_view token) {
        if (!time && (time = timeOf(token))) return;
        std::string_view rest = token;
        if (!day && (day = takeNumber(rest, 1, 2))) return;
        if (!month && (month = monthOf(token))) return;
        rest = token;
        if (!year) year = takeNumber(rest, 2, 4);
    }
};

int fullYear(int year) {
    if (year >= 70 && year <= 99) return year + 1900;
    return year <= 69 ? year + 2000 : year;
}

}  // namespace

std::optional<Date> readCookieDate(std::string_view text) {
    Parts parts;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t begin = at;
        while (at < text.size() && !isDelimiter(text[at])) ++at;
        if (at > begin) parts.take(text.substr(begin, at - begin));
        ++at;
    }
    if (!parts.time || !parts.day || !parts.month || !parts.year) return std::nullopt;
    const auto [hours, minutes, seconds] = *parts.time;
    if (hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
    constexpr int firstYear = 1601;
    const int year = fullYear(*parts.year);
    const std::chrono::year_month_day day{std::chrono::year(year), std::chrono::month(*parts.month),
                                          std::chrono::day(static_cast<unsigned>(*parts.day))};
    if (year < firstYear || !day.ok()) return std::nullopt;
    return Date(std::chrono::sys_days(day)) + std::chrono::hours(hours) + std::chrono::minutes(minutes) +
           std::chrono::seconds(seconds);
}

}  // namespace VanticRestKit::detail
