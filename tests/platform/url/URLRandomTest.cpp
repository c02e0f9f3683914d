#include <platform/url/URLRules.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace VanticRestKit {
namespace {

using test::brokenRule;

/// Random strings from a fixed seed, the same on every machine.
class RandomStrings {
public:
    std::string bytes() {
        std::string text(below(24), '\0');
        for (char& c : text) c = static_cast<char>(below(256));
        return text;
    }

    /// Strings with many URL delimiters, so that most of them are almost valid URLs.
    std::string delimiters() {
        static constexpr std::string_view pieces[] = {
            "/", ":", "//", "?", "#",   "@",   "[",  "]",   "%",    "a",   "b",  ".",  "..", "&",
            "=", " ", "é",  "1", "%2F", "%zz", "x:", "://", "http", "::1", "\\", "\n", "%FF"};
        std::string text;
        for (std::size_t count = below(12); count > 0; --count) text += pieces[below(std::size(pieces))];
        return text;
    }

private:
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }

    std::mt19937_64 engine_{20240229};
};

TEST(URLRandom, RandomBytesBreakNoRule) {
    RandomStrings texts;
    for (int round = 0; round < 10000; ++round) {
        const std::string text = texts.bytes();
        const std::string other = texts.bytes();
        ASSERT_EQ(brokenRule(text, other), "")
            << testing::PrintToString(text) << testing::PrintToString(other);
    }
}

TEST(URLRandom, RandomDelimitersBreakNoRule) {
    RandomStrings texts;
    for (int round = 0; round < 30000; ++round) {
        const std::string text = texts.delimiters();
        const std::string other = texts.delimiters();
        ASSERT_EQ(brokenRule(text, other), "")
            << testing::PrintToString(text) << testing::PrintToString(other);
    }
}

TEST(URLRandom, AURLAfterAnHTTPHeadBreaksNoRule) {
    RandomStrings texts;
    for (int round = 0; round < 10000; ++round) {
        const std::string text = "http://h" + texts.delimiters();
        const std::string other = texts.bytes();
        ASSERT_EQ(brokenRule(text, other), "")
            << testing::PrintToString(text) << testing::PrintToString(other);
    }
}

TEST(URLRandom, ALongStringIsReadCompletely) {
    const std::string path(1'000'000, '/');
    const auto url = URL::make("http://h" + path);
    ASSERT_TRUE(url);
    EXPECT_EQ(url->percentEncodedPath(), path);
    EXPECT_EQ(url->appendingPathComponent("x").percentEncodedPath(), path + "x");
    EXPECT_EQ(brokenRule("http://h" + path, std::string(100'000, ':')), "");
}

}  // namespace
}  // namespace VanticRestKit
