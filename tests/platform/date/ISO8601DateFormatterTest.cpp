#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/ISO8601DateFormatter.h>

#include "DateVectors.h"

namespace VanticRestKit {
namespace {

const ISO8601DateFormatter formatter;

TEST(ISO8601DateFormatter, AnswersEveryVector) {
    test::expectDatesOf("date_iso.jsonl", [](std::string_view text) { return formatter.date(text); });
}

TEST(ISO8601DateFormatter, ReadsWholeSecondsAndRefusesAFraction) {
    EXPECT_EQ(formatter.date("2021-03-04T05:06:07Z"), test::seconds(1614834367));
    EXPECT_EQ(formatter.date("2021-03-04T05:06:07.5Z"), std::nullopt);
}

TEST(ISO8601DateFormatter, ReadsAnOffsetWithAndWithoutColon) {
    EXPECT_EQ(formatter.date("2021-03-04T05:06:07+10:00"), test::seconds(1614798367));
    EXPECT_EQ(formatter.date("2021-03-04T05:06:07+1000"), test::seconds(1614798367));
}

TEST(ISO8601DateFormatter, ReadsTheFirstAndTheLastYear) {
    EXPECT_EQ(formatter.date("0001-01-01T00:00:00Z"), test::seconds(-62135596800));
    EXPECT_EQ(formatter.date("9999-12-31T23:59:59-23:59"), test::seconds(253402300799 + 86340));
    EXPECT_EQ(formatter.date("0000-12-31T23:59:59Z"), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
