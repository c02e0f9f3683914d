#include <gtest/gtest.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <string>

namespace VanticRestKit::detail {
namespace {

TEST(Unicode, KnowsTheDigitsOfOtherScripts) {
    EXPECT_EQ(decimalDigit(U'0'), 0);
    EXPECT_EQ(decimalDigit(U'9'), 9);
    EXPECT_EQ(decimalDigit(U'\u0660'), 0);
    EXPECT_EQ(decimalDigit(U'\u0669'), 9);
    EXPECT_EQ(decimalDigit(U'\uFF15'), 5);
    EXPECT_EQ(decimalDigit(U'\U0001D7FF'), 9);
}

TEST(Unicode, DoesNotTreatOtherNumbersAsDigits) {
    for (const char32_t code : {U'/', U':', U'a', U'\u065F', U'\u066A', U'\u00B2', U'\u00BD', U'\u2160',
                                U'\u3007', U'\U0010FFFF'}) {
        EXPECT_EQ(decimalDigit(code), -1) << static_cast<unsigned>(code);
    }
}

TEST(Unicode, CountsLettersMarksAndNumbersAsAlphanumeric) {
    for (const char32_t code : {U'a', U'Z', U'0', U'\u00AA', U'\u00B5', U'\u0301', U'\u20DD', U'\u2160',
                                U'\u65E5', U'\U0001D400', U'\U000E01EF'}) {
        EXPECT_TRUE(isAlphanumeric(code)) << static_cast<unsigned>(code);
    }
    for (const char32_t code : {U'@', U'[', U'\x80', U'\u00A9', U'\u00D7', U'\u200D', U'\u2028', U'\uE000',
                                U'\U0001F600', U'\U000E01F0', U'\U0010FFFF'}) {
        EXPECT_FALSE(isAlphanumeric(code)) << static_cast<unsigned>(code);
    }
}

}  // namespace
}  // namespace VanticRestKit::detail
