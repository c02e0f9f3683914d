#include <VanticRestKit/platform/http/cache/detail/HTTPDate.h>

#include <gtest/gtest.h>

#include <string>

namespace VanticRestKit::detail {

namespace {

using std::chrono::seconds;

// 2026-06-01.
constexpr seconds now{1'780'272'000};

TEST(HTTPDate, ReadsTheThreeFormsOfHTTP) {
    constexpr seconds expected{784'111'777};
    EXPECT_EQ(parseHTTPDate("Sun, 06 Nov 1994 08:49:37 GMT", now), expected);
    EXPECT_EQ(parseHTTPDate("Sunday, 06-Nov-94 08:49:37 GMT", now), expected);
    EXPECT_EQ(parseHTTPDate("Sun Nov  6 08:49:37 1994", now), expected);
    EXPECT_EQ(parseHTTPDate("sun, 06 NOV 1994 08:49:37 gmt", now), expected);
}

TEST(HTTPDate, ReadsATwoDigitYearAsTheOneWithinFiftyYears) {
    EXPECT_EQ(parseHTTPDate("Thursday, 18-Aug-50 02:01:18 GMT", now), seconds(2'544'400'878));
    EXPECT_LT(*parseHTTPDate("Thursday, 18-Aug-77 02:01:18 GMT", now), seconds(300'000'000));
}

TEST(HTTPDate, RefusesWhatIsNoDate) {
    for (const std::string text :
         {"", "0", "-1", "Sun, 06 Nov 1994 08:49:37 UTC", "Sun, 06 Nov 1994 08:49:37 AEST",
          "Sun, 06-Nov-1994 08:49:37 GMT", "Sun, 06 Nov 1994 8:49:37 GMT", "Sun, 06 Nov 1994 08:49:37",
          "Sun, 31 Feb 1994 08:49:37 GMT", "Sun, 06 Nov 1994 24:49:37 GMT", "Sun 06 Nov 1994 08:49:37 GMT",
          "Sun, 06  Nov 1994 08:49:37 GMT", "Sun, 06 Nov 1994 08:49:37 GMT, x"}) {
        EXPECT_FALSE(parseHTTPDate(text, now)) << text;
    }
}

TEST(HTTPDate, WritesWhatItReads) {
    for (const seconds date : {seconds(0), seconds(784'111'777), now, seconds(-1)}) {
        EXPECT_EQ(parseHTTPDate(formatHTTPDate(date), now), date);
    }
    EXPECT_EQ(formatHTTPDate(seconds(784'111'777)), "Sun, 06 Nov 1994 08:49:37 GMT");
}

}  // namespace

}  // namespace VanticRestKit::detail
