#include <VanticRestKit/platform/url/detail/PathRules.h>
#include <VanticRestKit/platform/url/detail/PercentCoding.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {
namespace {

std::string encoded(std::string_view text, URLCharacters part) {
    std::string out;
    appendEncoded(out, text, part);
    return out;
}

TEST(URLPercentCoding, EachPartKeepsItsAllowedCharacters) {
    constexpr std::string_view delimiters = "!$&'()*+,;=:@/?#[]%";
    EXPECT_EQ(encoded(delimiters, URLCharacters::user), "!$&'()*+,;=%3A%40%2F%3F%23%5B%5D%25");
    EXPECT_EQ(encoded(delimiters, URLCharacters::password), "!$&'()*+,;=:%40%2F%3F%23%5B%5D%25");
    EXPECT_EQ(encoded(delimiters, URLCharacters::host), "!$&'()*+,;=%3A%40%2F%3F%23%5B%5D%25");
    EXPECT_EQ(encoded(delimiters, URLCharacters::path), "!$&'()*+,;=:@/%3F%23%5B%5D%25");
    EXPECT_EQ(encoded(delimiters, URLCharacters::query), "!$&'()*+,;=:@/?%23%5B%5D%25");
    EXPECT_EQ(encoded(delimiters, URLCharacters::queryItem), "!$%26'()*+,;%3D:@/?%23%5B%5D%25");
}

TEST(URLPercentCoding, EveryByteRoundTrips) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        const std::string escaped = encoded(text, URLCharacters::path);
        EXPECT_TRUE(isEncoded(escaped, URLCharacters::path)) << byte;
        EXPECT_EQ(decodedBytes(escaped), text) << byte;
    }
}

TEST(URLPercentCoding, EscapesCanHaveDigitsOfEitherCase) {
    constexpr std::string_view upper = "0123456789ABCDEF";
    constexpr std::string_view lower = "0123456789abcdef";
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(static_cast<unsigned char>(byte)));
        for (const std::string_view digits : {upper, lower}) {
            EXPECT_EQ(decodedBytes(std::string{'%', digits[byte / 16], digits[byte % 16]}), text) << byte;
        }
    }
}

TEST(URLPercentCoding, APercentSignWithoutAnEscapeIsKept) {
    EXPECT_EQ(decodedBytes("%"), "%");
    EXPECT_EQ(decodedBytes("a%4"), "a%4");
    EXPECT_EQ(decodedBytes("%%41%g1%1g"), "%A%g1%1g");
}

TEST(URLPercentCoding, ExcludedEscapesAreKeptUnchanged) {
    EXPECT_EQ(decodedText("%2f%2F%41", "/"), "%2f%2FA");
}

TEST(URLPercentCoding, AStringThatDecodesToInvalidUTF8StaysEncoded) {
    EXPECT_EQ(decodedText("%41%C3"), "%41%C3");
    EXPECT_EQ(decodedText("%41%C3%A9"), "A\xC3\xA9");
}

TEST(URLPathRules, DotSegmentsAreRemoved) {
    EXPECT_EQ(withoutDotSegments("/a/b/c/./../../g"), "/a/g");
    EXPECT_EQ(withoutDotSegments("mid/content=5/../6"), "mid/6");
    EXPECT_EQ(withoutDotSegments("../x"), "x");
    EXPECT_EQ(withoutDotSegments("./.././x"), "x");
    EXPECT_EQ(withoutDotSegments("/.."), "/");
    EXPECT_EQ(withoutDotSegments("/a//../b"), "/a/b");
    EXPECT_EQ(withoutDotSegments("//"), "//");
    EXPECT_EQ(withoutDotSegments(".."), "");
    EXPECT_EQ(withoutDotSegments(""), "");
}

}  // namespace
}  // namespace VanticRestKit::detail
