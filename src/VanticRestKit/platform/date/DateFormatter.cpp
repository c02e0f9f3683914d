#include <VanticRestKit/platform/date/DateFormatter.h>
#include <VanticRestKit/platform/date/detail/DateReader.h>
#include <VanticRestKit/platform/date/detail/DeviceDate.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

namespace VanticRestKit {

namespace {

/// The length in bytes of the digits at the start of `text`.
std::size_t lengthOfDigits(std::string_view text) {
    std::size_t length = 0;
    while (true) {
        const detail::UTF8Character next = detail::firstCharacter(text.substr(length));
        if (next.length == 0 || detail::decimalDigit(next.code) < 0) return length;
        length += next.length;
    }
}

std::string withoutDottedDigits(std::string_view text) {
    std::string kept;
    kept.reserve(text.size());
    while (!text.empty()) {
        const std::size_t digits = text.front() == '.' ? lengthOfDigits(text.substr(1)) : 0;
        if (digits == 0) kept += text.front();
        text.remove_prefix(1 + digits);
    }
    return kept;
}

std::optional<Date> dateInZone(std::string_view text, TimeZone zone) {
    detail::DateReader reader(text);
    const auto clockSeconds = reader.clockSeconds(' ');
    if (!clockSeconds || !reader.atEnd()) return std::nullopt;
    return detail::dateOfSeconds(*clockSeconds - zone.secondsFromGMT);
}

}  // namespace

std::optional<TimeZone> TimeZone::withAbbreviation(std::string_view abbreviation) {
    if (abbreviation == "UTC" || abbreviation == "GMT") return TimeZone{};
    return std::nullopt;
}

std::optional<Date> DateFormatter::date(std::string_view text) const {
    if (dateFormat == apiPattern) return detail::dateWithOffset(text);
    if (dateFormat != devicePattern) return std::nullopt;
    return timeZone ? dateInZone(text, *timeZone) : detail::deviceDate(text);
}

std::optional<Date> DateFormatter::formattedDateWithoutMilliseconds(std::string_view rawDate) const {
    return date(withoutDottedDigits(rawDate));
}

std::optional<Date> ISO8601DateFormatter::date(std::string_view text) const {
    return detail::dateWithOffset(text);
}

const DateFormatter& apiDateFormatter() {
    static const DateFormatter& formatter =
        *new DateFormatter{.dateFormat = std::string(DateFormatter::apiPattern),
                           .timeZone = TimeZone::withAbbreviation("UTC"),
                           .locale = "en_US_POSIX"};
    return formatter;
}

}  // namespace VanticRestKit
