#include <gtest/gtest.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <string>

#include "support/Vectors.h"

namespace VanticRestKit::detail {
namespace {

TEST(Lowercased, MatchesEveryVector) {
    for (const auto& line : test::vectors("lowercase.jsonl")) {
        const auto text = line.at("in").at("text").get<std::string>();
        EXPECT_EQ(lowercased(text), line.at("out").get<std::string>()) << line;
    }
}

TEST(Lowercased, LowercasesOtherScripts) {
    EXPECT_EQ(lowercased("\u00C9\u0416\u03A3\U00010400"), "\u00E9\u0436\u03C3\U00010428");
}

TEST(Lowercased, LowercasesTheLastLetterOfAnAlphabet) {
    EXPECT_EQ(lowercased("Z\u00DE\u017D\u03EE\u042F\u0556\u24CF\uFF3A\U00010427"),
              "z\u00FE\u017E\u03EF\u044F\u0586\u24E9\uFF5A\U0001044F");
}

TEST(Lowercased, UsesNoFinalFormAtTheEndOfAWord) { EXPECT_EQ(lowercased("\u039F\u03A3"), "\u03BF\u03C3"); }

TEST(Lowercased, LowercasesOnlyCapitalsInAlternatingRanges) {
    EXPECT_EQ(lowercased("\u0100\u0101\u0102\u0103"), "\u0101\u0101\u0103\u0103");
}

TEST(Lowercased, KeepsBytesThatAreNotUTF8) {
    EXPECT_EQ(lowercased("A\xFF"
                         "B\xC3"),
              "a\xFF"
              "b\xC3");
}

TEST(EqualsLowercased, AgreesWithLowercasedOnEveryVector) {
    for (const auto& line : test::vectors("lowercase.jsonl")) {
        const auto text = line.at("in").at("text").get<std::string>();
        for (const char* word : {"video", "show", "", "kiosk"}) {
            EXPECT_EQ(equalsLowercased(text, word), lowercased(text) == word) << line << " " << word;
        }
    }
}

TEST(EqualsLowercased, AgreesWithLowercasedOnEveryCharacter) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        std::string text;
        appendUTF8(text, code);
        const std::string lowered = lowercased(text);
        const bool ascii = lowered.size() == 1 && static_cast<unsigned char>(lowered[0]) < 0x80;
        ASSERT_EQ(equalsLowercased(text, lowered), ascii) << "U+" << std::hex << static_cast<unsigned>(code);
    }
}

TEST(EqualsLowercased, TreatsTheKelvinSignAsK) {
    EXPECT_TRUE(equalsLowercased("\u212AIOS\u212A", "kiosk"));
    EXPECT_FALSE(equalsLowercased("\u212AIOS\u212A", "kios"));
    EXPECT_FALSE(equalsLowercased("\u212A", "kk"));
}

TEST(EqualsLowercased, DoesNotMatchLookAlikesOfAsciiLetters) {
    EXPECT_FALSE(equalsLowercased("V\u0130DEO", "video"));
    EXPECT_FALSE(equalsLowercased("v\u0131deo", "video"));
    EXPECT_FALSE(equalsLowercased("\u017Fhow", "show"));
    EXPECT_FALSE(equalsLowercased("\uFF33how", "show"));
}

TEST(EqualsLowercased, RejectsPrefixesAndLongerStrings) {
    EXPECT_FALSE(equalsLowercased("sho", "show"));
    EXPECT_FALSE(equalsLowercased("shows", "show"));
    EXPECT_FALSE(equalsLowercased("", "show"));
    EXPECT_TRUE(equalsLowercased("", ""));
}

TEST(EqualsLowercased, NothingEqualsAWordThatIsNotLowercase) {
    EXPECT_FALSE(equalsLowercased("Show", "Show"));
    EXPECT_FALSE(equalsLowercased("\u00E9", "\u00E9"));
}

TEST(SameIgnoringCase, ComparesLikeThePlatform) {
    for (const nlohmann::json& line : test::vectors("case_compare.jsonl")) {
        const bool same =
            sameIgnoringCase(line["in"]["a"].get<std::string>(), line["in"]["b"].get<std::string>());
        if (test::isFree(line)) continue;
        EXPECT_EQ(same, line["out"].get<bool>()) << line["in"];
    }
}

TEST(SameIgnoringCase, ComparesBytesThatAreNotUTF8Exactly) {
    EXPECT_TRUE(sameIgnoringCase("\xFF", "\xFF"));
    EXPECT_FALSE(sameIgnoringCase("\xFF", "\xFE"));
    EXPECT_FALSE(sameIgnoringCase("a\xFF", "A\xFF"));
    EXPECT_FALSE(sameIgnoringCase("a", "A\xFF"));
    EXPECT_FALSE(sameIgnoringCase("A\xFF", "a"));
}

}  // namespace
}  // namespace VanticRestKit::detail
