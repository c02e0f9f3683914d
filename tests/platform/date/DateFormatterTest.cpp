#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/DateFormatter.h>

#include <string>

#include "DateVectors.h"

namespace VanticRestKit {
namespace {

std::optional<Date> readByApi(std::string_view text) {
    return apiDateFormatter().formattedDateWithoutMilliseconds(text);
}

TEST(ApiDateFormatter, HasItsPatternInUtcAndThePosixLocale) {
    EXPECT_EQ(apiDateFormatter().dateFormat, "yyyy-MM-dd'T'HH:mm:ssZ");
    EXPECT_EQ(apiDateFormatter().timeZone, TimeZone{0});
    EXPECT_EQ(apiDateFormatter().locale, "en_US_POSIX");
}

TEST(ApiDateFormatter, IsASingleton) { EXPECT_EQ(&apiDateFormatter(), &apiDateFormatter()); }

TEST(ApiDateFormatter, MatchesEveryVector) { test::expectDatesOf("date_api.jsonl", readByApi); }

TEST(ApiDateFormatter, ReadsAnOffsetCorrectlyInAnyDeviceZone) {
    for (const char* zone : {"UTC", "Australia/Sydney", "America/New_York"}) {
        const test::TemporaryZone device(zone);
        EXPECT_EQ(apiDateFormatter().date("2021-03-04T05:06:07+1000"), test::seconds(1614798367));
    }
}

TEST(FormattedDateWithoutMilliseconds, ReadsTheSameDateWithAndWithoutAFraction) {
    EXPECT_EQ(readByApi("2021-03-04T05:06:07.123+0000"), test::seconds(1614834367));
    EXPECT_EQ(readByApi("2021-03-04T05:06:07+0000"), test::seconds(1614834367));
}

TEST(FormattedDateWithoutMilliseconds, RemovesAFractionOfZeros) {
    for (const char* fraction : {".0", ".000", ".100", ".010", ".001000"}) {
        EXPECT_EQ(readByApi(std::string("2021-03-04T05:06:07") + fraction + "Z"), test::seconds(1614834367))
            << fraction;
    }
}

TEST(FormattedDateWithoutMilliseconds, ReturnsNothingForAStringThatIsNotADate) {
    EXPECT_EQ(readByApi("soon"), std::nullopt);
    EXPECT_EQ(readByApi(""), std::nullopt);
    EXPECT_EQ(readByApi("."), std::nullopt);
    EXPECT_EQ(readByApi(".5"), std::nullopt);
}

TEST(FormattedDateWithoutMilliseconds, RemovesEveryDotFollowedByDigits) {
    EXPECT_EQ(readByApi("2021.5-03-04T05:06:07.123+0000"), test::seconds(1614834367));
    EXPECT_EQ(readByApi("2021-03-04T05:06:07.1.2.3Z"), test::seconds(1614834367));
}

TEST(FormattedDateWithoutMilliseconds, KeepsADotWithoutDigits) {
    EXPECT_EQ(readByApi("2021-03-04T05:06:07.+0000"), std::nullopt);
    EXPECT_EQ(readByApi("2021-03-04T05:06:07..5Z"), std::nullopt);
}

TEST(FormattedDateWithoutMilliseconds, RemovesAFractionInDigitsOfOtherScripts) {
    EXPECT_EQ(readByApi("2021-03-04T05:06:07.\u0661\u0662Z"), test::seconds(1614834367));
}

TEST(FormattedDateWithoutMilliseconds, WorksOnAnyFormatter) {
    const DateFormatter formatter{.dateFormat = std::string(DateFormatter::devicePattern),
                                  .timeZone = TimeZone{3600}};
    EXPECT_EQ(formatter.formattedDateWithoutMilliseconds("2020-01-02 03:04:05.75"),
              test::seconds(1577934245 - 3600));
    EXPECT_EQ(formatter.date("2020-01-02 03:04:05.75"), std::nullopt);
}

TEST(DateFormatter, ReadsTheDevicePatternInTheDevicesZoneByDefault) {
    const DateFormatter formatter{.dateFormat = std::string(DateFormatter::devicePattern)};
    test::expectDatesOf("date_device.jsonl", [&](std::string_view text) { return formatter.date(text); });
}

TEST(DateFormatter, ReturnsNothingForAStringThatIsNotADateInItsZone) {
    const DateFormatter formatter{.dateFormat = std::string(DateFormatter::devicePattern),
                                  .timeZone = TimeZone{3600}};
    for (const char* text : {"", "soon", "2020-01-02", "2020-13-02 03:04:05", "2020-01-02 03:04:05Z"}) {
        EXPECT_EQ(formatter.date(text), std::nullopt) << text;
    }
}

TEST(DateFormatter, RejectsEverythingWithoutAPatternOrWithAnUnknownOne) {
    EXPECT_EQ(DateFormatter{}.date("2020-01-02 03:04:05"), std::nullopt);
    EXPECT_EQ(DateFormatter{.dateFormat = "yyyy"}.date("2020"), std::nullopt);
}

TEST(TimeZone, IsKnownByTheAbbreviationsOfUniversalTimeOnly) {
    EXPECT_EQ(TimeZone::withAbbreviation("UTC"), TimeZone{0});
    EXPECT_EQ(TimeZone::withAbbreviation("GMT"), TimeZone{0});
    EXPECT_EQ(TimeZone::withAbbreviation("XYZ"), std::nullopt);
}

const ISO8601DateFormatter iso8601;

TEST(ISO8601DateFormatter, MatchesEveryVector) {
    test::expectDatesOf("date_iso.jsonl", [](std::string_view text) { return iso8601.date(text); });
}

TEST(ISO8601DateFormatter, ReadsWholeSecondsAndRefusesAFraction) {
    EXPECT_EQ(iso8601.date("2021-03-04T05:06:07Z"), test::seconds(1614834367));
    EXPECT_EQ(iso8601.date("2021-03-04T05:06:07.5Z"), std::nullopt);
}

TEST(ISO8601DateFormatter, ReadsAnOffsetWithAndWithoutColon) {
    EXPECT_EQ(iso8601.date("2021-03-04T05:06:07+10:00"), test::seconds(1614798367));
    EXPECT_EQ(iso8601.date("2021-03-04T05:06:07+1000"), test::seconds(1614798367));
}

TEST(ISO8601DateFormatter, ReadsTheFirstAndTheLastYear) {
    EXPECT_EQ(iso8601.date("0001-01-01T00:00:00Z"), test::seconds(-62135596800));
    EXPECT_EQ(iso8601.date("9999-12-31T23:59:59-23:59"), test::seconds(253402300799 + 86340));
    EXPECT_EQ(iso8601.date("0000-12-31T23:59:59Z"), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
