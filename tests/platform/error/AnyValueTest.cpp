#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/AnyValue.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace VanticRestKit {
namespace {

/// The number of kinds that a value reports to be.
int kinds(const AnyValue& value) {
    return int{value.text() != nullptr} + int{value.integer() != nullptr} + int{value.boolean() != nullptr} +
           int{value.number() != nullptr} + int{value.error() != nullptr} + int{value.other() != nullptr};
}

TEST(AnyValue, HasExactlyOneKind) {
    for (const AnyValue& value : {AnyValue("text"), AnyValue(1), AnyValue(true), AnyValue(1.5),
                                  AnyValue(Error(NSError("D", 1))), AnyValue(), AnyValue(1ULL << 63)}) {
        EXPECT_EQ(kinds(value), 1);
    }
}

TEST(AnyValue, HoldsAStringOfAnyStringType) {
    EXPECT_EQ(*AnyValue("text").text(), "text");
    EXPECT_EQ(*AnyValue(std::string("text")).text(), "text");
    EXPECT_EQ(*AnyValue(std::string_view("text")).text(), "text");
    EXPECT_EQ(*AnyValue("").text(), "");
}

TEST(AnyValue, ABooleanIsNotANumberAndANumberIsNotABoolean) {
    EXPECT_EQ(*AnyValue(true).boolean(), true);
    EXPECT_EQ(AnyValue(true).integer(), nullptr);
    EXPECT_EQ(AnyValue(1).boolean(), nullptr);
    EXPECT_NE(AnyValue(true), AnyValue(1));
}

TEST(AnyValue, HoldsEverySigned64BitInteger) {
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto greatest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(*AnyValue(least).integer(), least);
    EXPECT_EQ(*AnyValue(greatest).integer(), greatest);
    EXPECT_EQ(*AnyValue(static_cast<std::uint64_t>(greatest)).integer(), greatest);
    EXPECT_EQ(*AnyValue(static_cast<std::uint8_t>(200)).integer(), 200);
    EXPECT_EQ(*AnyValue(static_cast<short>(-5)).integer(), -5);
}

TEST(AnyValue, ANumberThatDoesNotFitHasTheKindOther) {
    const AnyValue value(std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(value.integer(), nullptr);
    ASSERT_NE(value.other(), nullptr);
    EXPECT_EQ(value.other()->description, "18446744073709551615");
}

TEST(AnyValue, AnIntegerIsNotAFloatingPointNumber) {
    EXPECT_EQ(*AnyValue(1.0).number(), 1.0);
    EXPECT_EQ(AnyValue(1.0).integer(), nullptr);
    EXPECT_NE(AnyValue(1.0), AnyValue(1));
    EXPECT_EQ(*AnyValue(0.5f).number(), 0.5);
}

TEST(AnyValue, ADefaultValueHasTheKindOther) {
    ASSERT_NE(AnyValue().other(), nullptr);
    EXPECT_EQ(AnyValue().other()->description, "");
    EXPECT_EQ(AnyValue(AnyValue::Other{"a list"}).other()->description, "a list");
    EXPECT_NE(AnyValue(AnyValue::Other{"a list"}), AnyValue());
}

TEST(AnyValue, AnAssignedCopyIsIndependent) {
    AnyValue original("text");
    AnyValue copy(1);
    copy = original;
    EXPECT_EQ(copy, original);
    original = AnyValue(2);
    ASSERT_NE(copy.text(), nullptr);
    EXPECT_EQ(*copy.text(), "text");
}

TEST(AnyValue, CannotBeMadeFromAPointerOrACharacter) {
    static_assert(!std::is_constructible_v<AnyValue, std::nullptr_t>);
    static_assert(!std::is_constructible_v<AnyValue, int*>);
    static_assert(!std::is_constructible_v<AnyValue, const void*>);
    static_assert(!std::is_constructible_v<AnyValue, char>);
    static_assert(!std::is_constructible_v<AnyValue, char32_t>);
}

TEST(AnyValue, ErrorsAreEqualIfTheirHandlesShareOneError) {
    const Error error = NSError("D", 1);
    EXPECT_EQ(AnyValue(error), AnyValue(error));
    EXPECT_NE(AnyValue(error), AnyValue(Error(NSError("D", 1))));
}

TEST(Dictionary, FindsAKeyWithoutBuildingAString) {
    const Dictionary values{{"number", 1}, {"truth", true}, {"text", "t"}, {"fraction", 0.5}};
    EXPECT_EQ(values.find(std::string_view("number"))->second, AnyValue(1));
    EXPECT_EQ(values.find("truth")->second, AnyValue(true));
    EXPECT_EQ(values.find("text")->second, AnyValue("t"));
    EXPECT_EQ(values.find("fraction")->second, AnyValue(0.5));
    EXPECT_EQ(values.find("none"), values.end());
}

TEST(Dictionary, ReadsAValueByItsKeyAndKind) {
    const Dictionary values{
        {"text", "x"}, {"integer", 7}, {"truth", true}, {"number", 1.5}, {"error", Error(NSError("D", 1))}};
    EXPECT_EQ(values.text("text"), "x");
    EXPECT_EQ(values.integer("integer"), 7);
    EXPECT_EQ(values.boolean("truth"), true);
    EXPECT_EQ(values.number("number"), 1.5);
    ASSERT_TRUE(values.error("error"));
    EXPECT_EQ(values.error("error")->domain(), "D");
}

TEST(Dictionary, HasNoValueForAnAbsentKeyOrAnotherKind) {
    const Dictionary values{{"integer", 7}, {"text", "7"}};
    EXPECT_EQ(values.text("absent"), std::nullopt);
    EXPECT_EQ(values.text("integer"), std::nullopt);
    EXPECT_EQ(values.integer("text"), std::nullopt);
    EXPECT_EQ(values.boolean("integer"), std::nullopt);
    EXPECT_EQ(values.number("integer"), std::nullopt);
    EXPECT_FALSE(values.error("text"));
}

TEST(Dictionary, OutlivesTheErrorItCameFrom) {
    EXPECT_EQ(Error(NSError("D", 1, {{"url_host", "a.example"}})).userInfo().text("url_host"), "a.example");
}

}  // namespace
}  // namespace VanticRestKit
