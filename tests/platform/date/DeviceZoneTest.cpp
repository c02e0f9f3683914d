#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/detail/DeviceDate.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>
#include <string>
#include <vector>

#include "DateVectors.h"

namespace VanticRestKit::detail {
namespace {

std::string clockText(const std::tm& fields) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", fields.tm_year + 1900,
                  fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec);
    return text;
}

std::string shownByClocks(std::time_t instant) {
    std::tm fields{};
    localtime_r(&instant, &fields);
    return clockText(fields);
}

std::string shownInUtc(std::time_t instant) {
    std::tm fields{};
    gmtime_r(&instant, &fields);
    return clockText(fields);
}

/// A zone, and an instant at or near a change of its clocks.
struct Transition {
    std::string name;
    std::string zone;
    std::time_t instant;
};

void PrintTo(const Transition& transition, std::ostream* out) { *out << transition.name; }

class NearATransition : public testing::TestWithParam<Transition> {};

constexpr std::time_t step = 300;
constexpr std::time_t day = 86400;

/// For each local time at a multiple of five minutes within three days of `middle`: the last instant at which the
/// clocks show it.
std::map<std::string, std::time_t> lastInstants(std::time_t middle) {
    std::map<std::string, std::time_t> last;
    // Historical offsets from UTC include seconds, and these differ before and after a transition.
    for (const std::time_t end : {middle - 3 * day, middle + 3 * day}) {
        std::tm fields{};
        localtime_r(&end, &fields);
        const std::time_t seconds = ((fields.tm_gmtoff % step) + step) % step;
        const std::time_t aligned = middle / step * step - seconds;
        for (std::time_t instant = aligned - 3 * day; instant <= aligned + 3 * day; instant += step) {
            std::time_t& known = last.try_emplace(shownByClocks(instant), instant).first->second;
            known = std::max(known, instant);
        }
    }
    return last;
}

TEST_P(NearATransition, ALocalTimeIsReadAsTheLastInstantThatShowsIt) {
    const test::TemporaryZone zone(GetParam().zone);
    tzset();
    const std::time_t middle = GetParam().instant / step * step;
    const auto last = lastInstants(middle);
    for (std::time_t clock = middle - day; clock <= middle + day; clock += step) {
        const std::string text = shownInUtc(clock);
        const auto shown = last.find(text);
        std::optional<Date> wanted;
        if (shown != last.end()) wanted = test::seconds(static_cast<double>(shown->second));
        EXPECT_EQ(deviceDate(text), wanted) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Zones, NearATransition,
    testing::Values(Transition{"AnHourForward", "Australia/Sydney", 1633190400},
                    Transition{"AnHourBack", "Australia/Sydney", 1617465600},
                    Transition{"HalfAnHourForward", "Australia/Lord_Howe", 1633188600},
                    Transition{"HalfAnHourBack", "Australia/Lord_Howe", 1617462000},
                    Transition{"AMinutePastMidnight", "America/St_Johns", 1143865860},
                    Transition{"ADayLeftOut", "Pacific/Apia", 1325239200},
                    Transition{"AQuarterOfAnHourForGood", "Asia/Kathmandu", 504901800},
                    Transition{"OutOfLocalMeanTime", "America/New_York", -2717650800},
                    Transition{"YearsAhead", "America/New_York", 2583464400},
                    Transition{"AMonthWithoutSummerTime", "Africa/Casablanca", 1618106400},
                    Transition{"OneOfTwoWithinAWeek", "Asia/Gaza", 2234304000},
                    Transition{"TheOtherOfTwoWithinAWeek", "Asia/Gaza", 2234905200},
                    Transition{"FourDaysOfSummerTime", "Africa/Freetown", -957308400},
                    Transition{"ARuleInTheEnvironment", "AAA-3BBB,J100/2,J110/3", 1618009200}),
    [](const auto& instance) { return instance.param.name; });

TEST(DeviceDate, RoundTripsLocalTimesThroughThreeCenturies) {
    for (const char* zone : {"UTC", "Australia/Sydney", "America/New_York", "Europe/London", "Pacific/Apia",
                             "Asia/Kathmandu", "Africa/Casablanca", "America/St_Johns"}) {
        const test::TemporaryZone device(zone);
        tzset();
        for (std::time_t instant = -3786825600; instant < 5679590400; instant += 1'000'003) {
            const std::string text = shownByClocks(instant);
            const std::optional<Date> date = deviceDate(text);
            ASSERT_TRUE(date.has_value()) << zone << " " << text;
            const auto read = static_cast<std::time_t>(date->time_since_epoch().count());
            ASSERT_EQ(shownByClocks(read), text) << zone;
            ASSERT_GE(read, instant) << zone << " " << text;
        }
    }
}

/// Daylight saving time of four days, starting on each day of a year in turn, so that every position relative to the
/// reader's cache and its search for transitions is tested.
TEST(DeviceDate, FindsADaylightSavingTimeOfFourDaysAnywhereInTheYear) {
    struct Zone {
        std::string standardAndSummer;
        std::time_t hoursAhead;
    };
    constexpr std::time_t hour = 3600;
    constexpr std::time_t firstOf2021 = 1609459200;
    for (const Zone& zone : {Zone{"AAA-14BBB-15", 14}, Zone{"AAA11BBB10", -11}}) {
        for (int number = 2; number < 360; ++number) {
            const std::string rule =
                ",J" + std::to_string(number) + "/0,J" + std::to_string(number + 4) + "/0";
            const test::TemporaryZone device(zone.standardAndSummer + rule);
            const auto read = [&](std::time_t clock) { return deviceDate(shownInUtc(clock)); };
            const auto instant = [&](std::time_t clock, std::time_t summerHours) {
                return test::seconds(static_cast<double>(clock - (zone.hoursAhead + summerHours) * hour));
            };
            const std::time_t begin = firstOf2021 + (number - 1) * day;
            const std::time_t end = begin + 4 * day;
            ASSERT_EQ(read(begin - hour / 2), instant(begin - hour / 2, 0)) << rule;
            ASSERT_EQ(read(begin + hour / 2), std::nullopt) << rule;
            ASSERT_EQ(read(begin + hour), instant(begin + hour, 1)) << rule;
            ASSERT_EQ(read(begin + 2 * day), instant(begin + 2 * day, 1)) << rule;
            ASSERT_EQ(read(end - hour - 1), instant(end - hour - 1, 1)) << rule;
            ASSERT_EQ(read(end - hour), instant(end - hour, 0)) << rule;
            ASSERT_EQ(read(end), instant(end, 0)) << rule;
        }
    }
}

}  // namespace
}  // namespace VanticRestKit::detail
