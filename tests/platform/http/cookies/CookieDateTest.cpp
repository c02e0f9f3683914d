#include <VanticRestKit/platform/http/cookies/detail/CookieDate.h>

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

using namespace VanticRestKit;

namespace {

/// Seconds since 1970, empty if `text` is not a date.
std::optional<double> seconds(std::string_view text) {
    const auto date = detail::readCookieDate(text);
    if (!date) return std::nullopt;
    return date->time_since_epoch().count();
}

}  // namespace

TEST(CookieDate, IsReadInEveryCommonFormat) {
    constexpr double expected = 784111777;
    EXPECT_EQ(seconds("Sun, 06 Nov 1994 08:49:37 GMT"), expected);
    EXPECT_EQ(seconds("Sunday, 06-Nov-94 08:49:37 GMT"), expected);
    EXPECT_EQ(seconds("Sun Nov  6 08:49:37 1994"), expected);
    EXPECT_EQ(seconds("06-Nov-1994 08:49:37"), expected);
}

TEST(CookieDate, IsReadInAnyOrderAndWithAnyDelimiter) {
    EXPECT_EQ(seconds("1994 nov 6 8:49:37"), 784111777);
    EXPECT_EQ(seconds("8:49:37;6/NOVEMBER/1994"), 784111777);
    EXPECT_EQ(seconds("6th Novel 94x 08:49:37pm"), 784111777);
    EXPECT_EQ(seconds("6\tNov\t1994\t08:49:37"), 784111777);
    EXPECT_EQ(seconds("6\x01Nov 1994 08:49:37"), std::nullopt);
}

TEST(CookieDate, UsesTheFirstTokenOfEachKind) {
    EXPECT_EQ(seconds("06 Nov 1994 08:49:37 07 Dec 2001 01:02:03"), 784111777);
}

TEST(CookieDate, ATwoDigitYearIsBetween1970And2069) {
    EXPECT_EQ(seconds("01 Jan 70 00:00:00"), 0);
    EXPECT_EQ(seconds("31 Dec 69 23:59:59"), 3155759999);
}

TEST(CookieDate, IsRejectedIfAPartIsMissing) {
    EXPECT_EQ(seconds(""), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 1994"), std::nullopt);
    EXPECT_EQ(seconds("Nov 1994 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("06 1994 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 08:49:37"), std::nullopt);
}

TEST(CookieDate, IsRejectedIfThereIsNoSuchDate) {
    EXPECT_EQ(seconds("31 Nov 1994 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("29 Feb 2011 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("00 Nov 1994 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 1600 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 1994 24:00:00"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 1994 08:60:00"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 1994 08:49:60"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 19940 08:49:37"), std::nullopt);
    EXPECT_EQ(seconds("06 Nov 1994 008:49:37"), std::nullopt);
}
