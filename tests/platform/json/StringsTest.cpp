// Strings of every length around the block sizes, with special characters at every position.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

/// A required string between two optional ones.
struct Texts {
    std::optional<std::string> before{};
    std::string text{};
    std::optional<std::string> after{};
    friend bool operator==(const Texts&, const Texts&) = default;
};

}  // namespace

template <>
const TypePlan& planOf<Texts>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Texts>(
        lenient<&Texts::before>("before"),
        required<&Texts::text>("text"),
        lenient<&Texts::after>("after"));
    // clang-format on
    return plan;
}

namespace {

using test::decoded;
using test::failureOf;

std::vector<std::size_t> sizesAroundBlocks() {
    std::vector<std::size_t> sizes;
    for (const std::size_t middle : {0U, 8U, 16U, 32U, 48U, 64U, 96U, 128U}) {
        for (std::size_t size = middle < 2 ? 0 : middle - 2; size <= middle + 2; ++size)
            sizes.push_back(size);
    }
    return sizes;
}

/// Letters that differ between positions, so that a byte read from the wrong position is noticed.
std::string letters(std::size_t size) {
    std::string text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('a' + i % 26);
    return text;
}

/// Expects that `inside` is read as `text`: as an optional and a required field, and as the root of a document.
void expectString(const std::string& inside, const std::string& text) {
    const std::string quoted = '"' + inside + '"';
    const std::optional<Texts> texts =
        decoded<Texts>("{\"before\":" + quoted + ",\"text\":" + quoted + ",\"after\":" + quoted + "}");
    ASSERT_TRUE(texts) << quoted;
    EXPECT_EQ(*texts, (Texts{text, text, text})) << quoted;
    EXPECT_EQ(decoded<std::string>(quoted), text) << quoted;
}

/// Expects that `inside` is not a valid string, and that a lenient field ignores it.
void expectInvalid(const std::string& inside) {
    const std::string quoted = '"' + inside + '"';
    EXPECT_EQ(failureOf<Texts>("{\"text\":" + quoted + "}"), R"(dataCorrupted ["text"])") << quoted;
    EXPECT_EQ(failureOf<std::string>(quoted), "dataCorrupted []") << quoted;
    const std::optional<Texts> texts =
        decoded<Texts>("{\"before\":" + quoted + ",\"text\":\"t\",\"after\":\"b\",\"x\":" + quoted + "}");
    ASSERT_TRUE(texts) << quoted;
    EXPECT_EQ(*texts, (Texts{{}, "t", "b"})) << quoted;
}

/// Every length of `sizesAroundBlocks`, with `spelled` inserted at every position.
template <class Expect>
void atEveryPlace(const std::string& spelled, Expect expect) {
    for (const std::size_t size : sizesAroundBlocks()) {
        const std::string plain = letters(size);
        for (std::size_t place = 0; place <= size; ++place) {
            expect(plain.substr(0, place), spelled, plain.substr(place));
        }
    }
}

TEST(AString, IsReadCompletelyAtEveryLength) {
    for (std::size_t size = 0; size <= 200; ++size) expectString(letters(size), letters(size));
}

TEST(AString, IsReadCompletelyAtEveryStartOffset) {
    for (std::size_t blanks = 0; blanks < 40; ++blanks) {
        for (const std::size_t size : {0U, 14U, 15U, 16U, 31U, 32U, 33U}) {
            EXPECT_EQ(decoded<std::string>(std::string(blanks, ' ') + '"' + letters(size) + '"'),
                      letters(size));
        }
    }
}

TEST(AString, CanContainAnEscapeAtEveryPosition) {
    const std::vector<std::pair<std::string, std::string>> escapes = {
        {"\\\"", "\""},   {"\\\\", "\\"},        {"\\/", "/"},          {"\\b", "\b"},
        {"\\f", "\f"},    {"\\n", "\n"},         {"\\r", "\r"},         {"\\t", "\t"},
        {"\\u0041", "A"}, {"\\u00e9", "\u00e9"}, {"\\u20AC", "\u20ac"}, {"\\ud800\\udf48", "\U00010348"},
    };
    for (const auto& [spelled, meant] : escapes) {
        const std::string& text = meant;
        atEveryPlace(spelled,
                     [&text](const std::string& left, const std::string& escape, const std::string& right) {
                         expectString(left + escape + right, left + text + right);
                     });
    }
}

TEST(AString, CanContainAnEscapedNul) {
    expectString("a\\u0000b", std::string("a\0b", 3));
    expectString("\\u0000", std::string("\0", 1));
}

TEST(AString, CanContainNonASCIICharactersAtEveryPosition) {
    for (const char* const letter : {"\u00e9", "\u20ac", "\U00010348", "\x7f"}) {
        atEveryPlace(letter, [](const std::string& left, const std::string& high, const std::string& right) {
            expectString(left + high + right, left + high + right);
        });
    }
}

TEST(AString, IsInvalidWithAFaultAtAnyPosition) {
    const std::vector<std::string> faults = {
        "\\x",
        "\\u12g4",
        "\\ud800",
        "\\udc00",
        "\\ud800\\u0041",
        "\\ud800\\bdc00",
        "\\ud800xudc00",
        "\x01",
        "\x1f",
        "\n",
        std::string(1, '\0'),
        "\xff",
        "\x80",
        "\xc0\x80",
        "\xc3",
        "\xe2\x82",
        "\xed\xa0\x80",
        "\xf0\x8f\x80\x80",
        "\xf4\x90\x80\x80",
        "\xf5\x80\x80\x80",
    };
    for (const std::string& fault : faults) {
        for (const std::size_t size : {0U, 1U, 14U, 15U, 16U, 30U, 31U, 32U, 33U, 62U, 63U, 64U}) {
            for (const std::size_t place : {std::size_t{0}, size / 2, size}) {
                const std::string plain = letters(size);
                // After a lead byte, a letter would be a different fault.
                expectInvalid(plain.substr(0, place) + fault + plain.substr(place));
            }
        }
    }
}

TEST(AString, EndsOnlyAtAnUnescapedQuote) {
    for (const std::size_t size : sizesAroundBlocks()) {
        const std::string plain = letters(size);
        // Paired backslashes escape each other, an odd one escapes the quote.
        expectString(plain + "\\\\", plain + "\\");
        expectString(plain + "\\\\\\\"", plain + "\\\"");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\\\""), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\\\\\\\""), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\\"), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\\u"), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\\u004"), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\\u12\""), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::string>('"' + plain + "\"\""), "dataCorrupted []");
    }
}

TEST(AString, CanHaveAMillionBytes) {
    const std::string text = letters(1'000'000);
    EXPECT_EQ(decoded<std::string>('"' + text + '"'), text);
    EXPECT_EQ(decoded<std::string>('"' + text + "\\n\""), text + '\n');
}

}  // namespace
}  // namespace VanticRestKit
