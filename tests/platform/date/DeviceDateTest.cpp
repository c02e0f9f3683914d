#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/detail/DeviceDate.h>

#include <cstdint>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "DateVectors.h"

namespace VanticRestKit::detail {
namespace {

TEST(DeviceDate, MatchesEveryVector) { test::expectDatesOf("date_device.jsonl", deviceDate); }

TEST(DeviceDate, NoticesAZoneChangeBetweenTwoCalls) {
    for (int round = 0; round < 3; ++round) {
        const test::TemporaryZone sydney("Australia/Sydney");
        EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577894645));
        const test::TemporaryZone kathmandu("Asia/Kathmandu");
        EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577913545));
    }
}

TEST(DeviceDate, NoticesAZoneWithAVeryLongName) {
    std::string name = "Australia/Sydney";
    while (name.size() < 300) name.insert(0, "Australia/../");
    const test::TemporaryZone utc("UTC");
    EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577934245));
    const test::TemporaryZone sydney(name);
    EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577894645));
    EXPECT_EQ(deviceDate("2020-07-02 03:04:05"), test::seconds(1593623045));
}

TEST(DeviceDate, NoticesAZoneWithANameOfAnyLength) {
    for (std::size_t slashes = 1; slashes < 140; ++slashes) {
        const test::TemporaryZone utc("UTC");
        EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577934245));
        const test::TemporaryZone sydney("Australia" + std::string(slashes, '/') + "Sydney");
        EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577894645)) << slashes;
        EXPECT_EQ(deviceDate("2020-01-02 03:04:06"), test::seconds(1577894646)) << slashes;
    }
}

TEST(DeviceDate, UsesTheSystemsZoneIfTheEnvironmentSetsNone) {
    const test::TemporaryZone zone(std::nullopt);
    std::tm fields{};
    fields.tm_year = 120;
    fields.tm_mday = 2;
    fields.tm_hour = 12;
    fields.tm_isdst = -1;
    EXPECT_EQ(deviceDate("2020-01-02 12:00:00"), test::seconds(static_cast<double>(std::mktime(&fields))));
}

TEST(DeviceZoneHold, KeepsTheZoneUntilTheOutermostHoldEnds) {
    const test::TemporaryZone sydney("Australia/Sydney");
    {
        const DeviceZoneHold outer;
        const test::TemporaryZone utc("UTC");
        EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577894645));
        { const DeviceZoneHold inner; }
        EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577894645));
    }
    const test::TemporaryZone utc("UTC");
    EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577934245));
}

TEST(DeviceZoneHold, NoticesAChangeMadeBeforeIt) {
    const test::TemporaryZone sydney("Australia/Sydney");
    EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577894645));
    const test::TemporaryZone utc("UTC");
    const DeviceZoneHold hold;
    EXPECT_EQ(deviceDate("2020-01-02 03:04:05"), test::seconds(1577934245));
}

TEST(DeviceDate, ReadsTheFirstAndTheLastSecondOfItsRange) {
    const test::TemporaryZone utc("UTC");
    EXPECT_EQ(deviceDate("0001-01-01 00:00:00"), test::seconds(-62135596800));
    EXPECT_EQ(deviceDate("9999-12-31 23:59:59"), test::seconds(253402300799));
    EXPECT_EQ(deviceDate("0000-12-31 23:59:59"), std::nullopt);
    const test::TemporaryZone sydney("Australia/Sydney");
    EXPECT_TRUE(deviceDate("0001-01-01 00:00:00").has_value());
    EXPECT_EQ(deviceDate("9999-12-31 23:59:59"), test::seconds(253402261199));
}

TEST(DeviceDate, TheYearHasFourDigitsAndTheOtherFieldsHaveOneOrTwo) {
    const test::TemporaryZone utc("UTC");
    EXPECT_EQ(deviceDate("2020-1-2 3:4:5"), test::seconds(1577934245));
    for (const char* text : {"20-01-02 03:04:05", "020-01-02 03:04:05", "02020-01-02 03:04:05",
                             "2020-001-02 03:04:05", "2020-01-002 03:04:05", "2020-01-02 003:04:05",
                             "2020-01-02 03:004:05", "2020-01-02 03:04:005", "2020--02 03:04:05"}) {
        EXPECT_EQ(deviceDate(text), std::nullopt) << text;
    }
}

TEST(DeviceDate, ReadsDigitsOfEveryScriptAndNoOtherNumbers) {
    const test::TemporaryZone utc("UTC");
    EXPECT_EQ(deviceDate("\u0662\u0660\u0662\u0660-0\uFF11-\u0662 \u0663:04:05"), test::seconds(1577934245));
    EXPECT_EQ(deviceDate("202\u2070-01-02 03:04:05"), std::nullopt);
    EXPECT_EQ(deviceDate("2020-01-\u2461 03:04:05"), std::nullopt);
    EXPECT_EQ(deviceDate("2020-01-02 03:04:0\xD9"), std::nullopt);
}

TEST(DeviceDate, NoPrefixOfADateIsADate) {
    const std::string text = "2020-01-02 03:04:05";
    for (std::size_t length = 0; length < text.size() - 1; ++length) {
        EXPECT_EQ(deviceDate(text.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_TRUE(deviceDate("2020-01-02 03:04:0").has_value());
}

TEST(DeviceDate, AStringWithAByteReplacedByANonDigitIsNotADate) {
    const std::string text = "2020-01-02 03:04:05";
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = text;
            changed[place] = static_cast<char>(static_cast<unsigned char>(byte));
            const bool digit = byte >= '0' && byte <= '9';
            if (digit || changed == text) continue;
            EXPECT_EQ(deviceDate(changed), std::nullopt) << changed;
        }
    }
}

TEST(DeviceDate, GivesTheSameResultsOnManyThreads) {
    const test::TemporaryZone zone("Australia/Sydney");
    std::mt19937 random(7);
    std::vector<std::string> texts;
    for (int index = 0; index < 500; ++index) {
        const auto number = [&random](unsigned from, unsigned count) {
            return std::to_string(from + random() % count);
        };
        texts.push_back(number(1950, 120) + "-" + number(1, 12) + "-" + number(1, 28) + " " + number(0, 24) +
                        ":" + number(0, 60) + ":" + number(0, 60));
    }
    std::vector<std::optional<Date>> wanted;
    for (const auto& text : texts) wanted.push_back(deviceDate(text));

    std::vector<std::size_t> wrong(8, 0);
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < wrong.size(); ++index) {
        threads.emplace_back([&texts, &wanted, &mine = wrong[index], holds = index % 2 == 0] {
            std::optional<DeviceZoneHold> hold;
            if (holds) hold.emplace();
            for (int round = 0; round < 10; ++round) {
                for (std::size_t place = 0; place < texts.size(); ++place) {
                    if (deviceDate(texts[place]) != wanted[place]) ++mine;
                }
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(wrong, std::vector<std::size_t>(8, 0));
}

}  // namespace
}  // namespace VanticRestKit::detail
