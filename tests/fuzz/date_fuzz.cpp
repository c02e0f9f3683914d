// Passes strings to the three date readers. None may crash, and their results must obey the rules for dates. The first
// byte of an input selects the device's zone, the rest is the string.

#include <VanticRestKit/platform/date/DateFormatter.h>
#include <VanticRestKit/platform/date/detail/DeviceDate.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace {

using VanticRestKit::apiDateFormatter;
using VanticRestKit::Date;
using VanticRestKit::detail::deviceDate;

void require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "broken rule: %s\n", rule);
    std::abort();
}

double secondsOf(Date date) { return date.time_since_epoch().count(); }

/// Requires a whole second from the day before year 1 to the day after year 9999, since the zone can be any.
void requireSensible(const std::optional<Date>& date) {
    if (!date) return;
    const double seconds = secondsOf(*date);
    require(seconds == std::floor(seconds), "a date is a whole second");
    require(seconds > -62135596800.0 - 2 * 86400 && seconds < 253402300800.0 + 2 * 86400,
            "a date lies in the years 1 to 9999");
}

std::string shownByClocks(Date date) {
    const auto instant = static_cast<std::time_t>(secondsOf(date));
    std::tm fields{};
    localtime_r(&instant, &fields);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", fields.tm_year + 1900,
                  fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec);
    return text;
}

/// The instant at which a clock in UTC shows `clockText`.
std::optional<Date> readInUtc(std::string clockText) {
    clockText[clockText.find(' ')] = 'T';
    const std::optional<Date> date = VanticRestKit::ISO8601DateFormatter().date(clockText + "Z");
    require(date.has_value(), "what is a date somewhere is one in UTC");
    return date;
}

void readByDevice(std::string_view text) {
    const std::optional<Date> date = deviceDate(text);
    requireSensible(date);
    const VanticRestKit::detail::DeviceZoneHold hold;
    require(deviceDate(text) == date, "a held zone is the same zone");
    if (!date) return;
    const std::string shown = shownByClocks(*date);
    require(deviceDate(shown) == date, "a date comes back from what the clocks show");
    require(readInUtc(std::string(text)) == readInUtc(shown), "at a date the clocks show its text");
}

void readWithOffset(const std::string& text) {
    const std::optional<Date> iso = VanticRestKit::ISO8601DateFormatter().date(text);
    const std::optional<Date> api = apiDateFormatter().date(text);
    requireSensible(iso);
    require(api == iso, "both forms with an offset are one");
    const std::optional<Date> stripped = apiDateFormatter().formattedDateWithoutMilliseconds(text);
    requireSensible(stripped);
    if (iso) require(stripped == iso, "a date without a fraction loses nothing");
    if (text.find('.') == std::string::npos) require(stripped == api, "without a dot nothing is taken out");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* zones[] = {
        "UTC",           "Australia/Sydney", "Africa/Casablanca",      "Pacific/Apia", "Asia/Gaza",
        "Europe/London", "America/St_Johns", "AAA-3BBB,J100/2,J110/3", "broken,zone,"};
    if (size == 0) return 0;
    setenv("TZ", zones[data[0] % std::size(zones)], 1);
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    readByDevice(text);
    readWithOffset(text);
    return 0;
}
