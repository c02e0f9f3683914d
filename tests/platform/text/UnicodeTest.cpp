#include <gtest/gtest.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/Utf8.h>

#include <string>

namespace VanticRestKit::detail {
namespace {

TEST(Utf8, EveryCharacterComesBackFromItsBytes) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        std::string text;
        appendUtf8(text, code);
        const Utf8Character read = firstCharacter(text);
        ASSERT_EQ(read.code, code);
        ASSERT_EQ(read.length, text.size());
    }
}

TEST(Utf8, RefusesOverlongFormsSurrogatesAndWhatLiesBeyondUnicode) {
    for (const char* text : {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xED\xBF\xBF",
                             "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\x80", "\xFF"}) {
        EXPECT_EQ(firstCharacter(text).length, 0u);
    }
}

TEST(Utf8, RefusesWhatBeginsWithAByteThatBeginsNothing) {
    for (int first = 0x80; first < 0x100; ++first) {
        if (first >= 0xC0 && first < 0xF8) continue;
        for (const char* others : {"\x80\x80\x80", "\x90\x80\x80", "\xBF\xBF\xBF"}) {
            const std::string text =
                static_cast<char>(static_cast<unsigned char>(first)) + std::string(others);
            EXPECT_EQ(firstCharacter(text).length, 0u) << first;
        }
    }
}

TEST(Utf8, RefusesACharacterThatIsCutOff) {
    const std::string text = "\U0001F600";
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_EQ(firstCharacter(std::string_view(text).substr(0, length)).length, 0u);
    }
}

TEST(Unicode, KnowsTheDigitsOfOtherScripts) {
    EXPECT_EQ(decimalDigit(U'0'), 0);
    EXPECT_EQ(decimalDigit(U'9'), 9);
    EXPECT_EQ(decimalDigit(U'\u0660'), 0);
    EXPECT_EQ(decimalDigit(U'\u0669'), 9);
    EXPECT_EQ(decimalDigit(U'\uFF15'), 5);
    EXPECT_EQ(decimalDigit(U'\U0001D7FF'), 9);
}

TEST(Unicode, TakesNoOtherNumberForADigit) {
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
