#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {
namespace {

TEST(UTF8, EveryCharacterRoundTrips) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        std::string text;
        appendUTF8(text, code);
        const UTF8Character read = firstCharacter(text);
        ASSERT_EQ(read.code, code);
        ASSERT_EQ(read.length, text.size());
    }
}

TEST(UTF8, RejectsOverlongFormsSurrogatesAndValuesBeyondUnicode) {
    for (const char* text : {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xED\xBF\xBF",
                             "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\x80", "\xFF"}) {
        EXPECT_EQ(firstCharacter(text).length, 0u);
    }
}

TEST(UTF8, RejectsInvalidLeadBytes) {
    for (int first = 0x80; first < 0x100; ++first) {
        if (first >= 0xC0 && first < 0xF8) continue;
        for (const char* others : {"\x80\x80\x80", "\x90\x80\x80", "\xBF\xBF\xBF"}) {
            const std::string text =
                static_cast<char>(static_cast<unsigned char>(first)) + std::string(others);
            EXPECT_EQ(firstCharacter(text).length, 0u) << first;
        }
    }
}

TEST(UTF8, RejectsATruncatedCharacter) {
    const std::string text = "\U0001F600";
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_EQ(firstCharacter(std::string_view(text).substr(0, length)).length, 0u);
    }
}

TEST(UTF8, AcceptsValidTextOfEveryLength) {
    EXPECT_TRUE(isUTF8(""));
    EXPECT_TRUE(isUTF8("a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"));
    EXPECT_TRUE(isUTF8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
}

TEST(UTF8, RejectsTextWithAnInvalidSequence) {
    for (const char* bytes : {"\x80", "\xC3",
                              "\xC3"
                              "a",
                              "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xE2\x82",
                              "\xE2\x82"
                              "a",
                              "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF0\x90\x80",
                              "\xF0\x90\x80"
                              "a",
                              "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
        EXPECT_FALSE(isUTF8(bytes)) << testing::PrintToString(std::string(bytes));
    }
}

}  // namespace
}  // namespace VanticRestKit::detail
