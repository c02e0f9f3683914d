#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/detail/HTTPDate.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace VanticRestKit::detail {
namespace {

constexpr std::int64_t in1994 = 784111777;                 // 1994-11-06 08:49:37
constexpr Date now(std::chrono::duration<double>(1.7e9));  // 2023-11-14

std::optional<std::int64_t> secondsOf(std::string_view text, Date today = now) {
    const std::optional<Date> date = httpDate(text, today);
    if (!date) return std::nullopt;
    return static_cast<std::int64_t>(date->time_since_epoch().count());
}

TEST(HTTPDate, ReadsEachOfTheThreeFormats) {
    EXPECT_EQ(secondsOf("Sun, 06 Nov 1994 08:49:37 GMT"), in1994);
    EXPECT_EQ(secondsOf("Sunday, 06-Nov-94 08:49:37 GMT"), in1994);
    EXPECT_EQ(secondsOf("Sun Nov  6 08:49:37 1994"), in1994);
    EXPECT_EQ(secondsOf("Wed Nov 16 08:49:37 1994"), in1994 + 10 * 86400);
}

TEST(HTTPDate, IgnoresCase) {
    EXPECT_EQ(secondsOf("sun, 06 NOV 1994 08:49:37 gmt"), in1994);
    EXPECT_EQ(secondsOf("SUNDAY, 06-nov-94 08:49:37 Gmt"), in1994);
    EXPECT_EQ(secondsOf("SUN nov  6 08:49:37 1994"), in1994);
}

TEST(HTTPDate, ReadsBackWhatItWrites) {
    constexpr std::chrono::seconds today{1'780'272'000};
    for (const std::int64_t date : {std::int64_t{0}, in1994, std::int64_t{1'780'272'000}, std::int64_t{-1},
                                    std::int64_t{253'402'300'799}, std::int64_t{-60'000'000'000}}) {
        EXPECT_EQ(parseHTTPDate(formatHTTPDate(std::chrono::seconds(date)), today),
                  std::chrono::seconds(date));
    }
    EXPECT_EQ(formatHTTPDate(std::chrono::seconds(in1994)), "Sun, 06 Nov 1994 08:49:37 GMT");
}

TEST(HTTPDate, ReadsADateBefore1970) { EXPECT_EQ(secondsOf("Wed, 31 Dec 1969 23:59:59 GMT"), -1); }

TEST(HTTPDate, ALeapSecondIsTheFirstSecondOfTheNextMinute) {
    EXPECT_EQ(secondsOf("Sat, 31 Dec 2016 23:59:60 GMT"), secondsOf("Sun, 01 Jan 2017 00:00:00 GMT"));
    // There is no later second that can be written.
    EXPECT_EQ(secondsOf("Fri, 31 Dec 9999 23:59:60 GMT"), secondsOf("Fri, 31 Dec 9999 23:59:59 GMT"));
}

TEST(HTTPDate, ATwoDigitYearIsAtMostFiftyYearsAhead) {
    EXPECT_EQ(secondsOf("Sunday, 06-Nov-73 08:49:37 GMT"), secondsOf("Sun, 06 Nov 2073 08:49:37 GMT"));
    EXPECT_EQ(secondsOf("Sunday, 06-Nov-74 08:49:37 GMT"), secondsOf("Sun, 06 Nov 1974 08:49:37 GMT"));
    const Date late(std::chrono::duration<double>(3.8e9));  // 2090
    EXPECT_EQ(secondsOf("Sunday, 06-Nov-05 08:49:37 GMT", late), secondsOf("Sun, 06 Nov 2105 08:49:37 GMT"));
}

TEST(HTTPDate, AcceptsAClockThatIsFarOff) {
    for (const double seconds : {1e300, -1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_TRUE(
            secondsOf("Sunday, 06-Nov-94 08:49:37 GMT", Date(std::chrono::duration<double>(seconds))));
    }
}

TEST(HTTPDate, RejectsEverythingElse) {
    for (const char* text : {"",
                             "120",
                             "Sun",
                             "Sun,",
                             "Sun, 06 Nov 1994 08:49:37",
                             "Sun, 06 Nov 1994 08:49:37 UTC",
                             "Sun, 06 Nov 1994 08:49:37 GMT ",
                             " Sun, 06 Nov 1994 08:49:37 GMT",
                             "Sun, 6 Nov 1994 08:49:37 GMT",
                             "Sun, 31 Nov 1994 08:49:37 GMT",
                             "Sun, 00 Nov 1994 08:49:37 GMT",
                             "-1",
                             "Sun, 06 Nov 1994 08:49:37 AEST",
                             "Sun, 06-Nov-1994 08:49:37 GMT",
                             "Sun, 06 Nov 1994 8:49:37 GMT",
                             "Sun, 31 Feb 1994 08:49:37 GMT",
                             "Sun 06 Nov 1994 08:49:37 GMT",
                             "Sun, 06  Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nov 1994 08:49:37 GMT, x",
                             "Sunmon, 06-Nov-94 08:49:37 GMT",
                             "Day, 06 Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nov 1994 24:00:00 GMT",
                             "Sun, 06 Nov 1994 08:60:00 GMT",
                             "Sun, 06 Nov 1994 08:49:61 GMT",
                             "Sun, 06 Nov 94 08:49:37 GMT",
                             "Sunday, 06 Nov 1994 08:49:37 GMT",
                             "Sunday, 06-Nov-1994 08:49:37 GMT",
                             "Sun Nov 6 08:49:37 1994",
                             "Sun Nov  6 08:49:37 1994 GMT",
                             "Sun Nov  6 08:49 1994"}) {
        EXPECT_EQ(secondsOf(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace VanticRestKit::detail
