#include <gtest/gtest.h>
#include <VanticRestKit/platform/text/detail/PercentEncoding.h>

#include <string>

#include "support/Vectors.h"

namespace VanticRestKit::detail {
namespace {

TEST(PercentEncoding, MatchesEveryVector) {
    for (const auto& line : test::vectors("percent_encode.jsonl")) {
        const auto text = line.at("in").at("text").get<std::string>();
        EXPECT_EQ(paramsEncoded(text), line.at("out").get<std::string>()) << line;
    }
}

TEST(PercentEncoding, EncodesAllAsciiExceptLettersDigitsAndFourCharacters) {
    const std::string kept = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    for (char character = 0; character < 127; ++character) {
        const std::string text(1, character);
        if (kept.find(character) != std::string::npos) {
            EXPECT_EQ(paramsEncoded(text), text);
        } else {
            EXPECT_EQ(paramsEncoded(text).size(), 3u) << int{character};
        }
    }
    EXPECT_EQ(paramsEncoded("\x7F"), "%7F");
}

TEST(PercentEncoding, EncodesSpaceAmpersandQuotesAndBraces) {
    EXPECT_EQ(paramsEncoded(R"({"name":"a & b"})"), "%7B%22name%22%3A%22a%20%26%20b%22%7D");
}

TEST(PercentEncoding, KeepsLettersMarksAndNumbersOfOtherScripts) {
    const std::string text = "\u00E9\u65E5e\u0301\u0669\u00BD\u2160\U0001D400";
    EXPECT_EQ(paramsEncoded(text), text);
}

TEST(PercentEncoding, EncodesEachByteOfANonAsciiSymbol) {
    EXPECT_EQ(paramsEncoded("\u20AC"), "%E2%82%AC");
    EXPECT_EQ(paramsEncoded("\U0001F600"), "%F0%9F%98%80");
}

TEST(PercentEncoding, EncodesBytesThatAreNotUTF8OneByOne) {
    EXPECT_EQ(paramsEncoded("a\xFF\xC3"), "a%FF%C3");
    EXPECT_EQ(paramsEncoded("\xC3(a"), "%C3%28a");
    EXPECT_EQ(paramsEncoded("\xED\xA0\x80"), "%ED%A0%80");
    EXPECT_EQ(paramsEncoded("\xC1\x81"), "%C1%81");
}

TEST(PercentEncoding, AnEmptyStringStaysEmpty) { EXPECT_EQ(paramsEncoded(""), ""); }

}  // namespace
}  // namespace VanticRestKit::detail
