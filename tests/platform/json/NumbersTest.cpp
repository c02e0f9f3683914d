// Numbers in every notation, read as each of the three kinds.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Track {
    int number{};
    std::optional<short> disc{};
    std::vector<int> plays{};
};

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<Track>() {
    using namespace mapping;
    static const TypePlan& plan = object<Track>(
        required<&Track::number>("number"), optional<&Track::disc>("disc"), lenient<&Track::plays>("plays"));
    return plan;
}

namespace VanticRestKit {
namespace {

using test::shown;

/// The value of a token as each kind, "-" if it does not fit.
struct Spelling {
    std::string token;
    std::string asUnsigned;
    std::string asInteger;
    std::string asDouble;
};

std::string expected(const std::string& value) { return value == "-" ? "dataCorrupted []" : value; }

void expectNumbers(const std::vector<Spelling>& spellings) {
    for (const Spelling& spelling : spellings) {
        EXPECT_EQ(shown<std::uint64_t>(spelling.token), expected(spelling.asUnsigned)) << spelling.token;
        EXPECT_EQ(shown<std::int64_t>(spelling.token), expected(spelling.asInteger)) << spelling.token;
        EXPECT_EQ(shown<double>(spelling.token), expected(spelling.asDouble)) << spelling.token;
    }
}

TEST(ANumber, IsAnIntegerInEveryNotation) {
    expectNumbers({
        {"0", "0", "0", "0"},
        {"-0", "0", "0", "-0"},
        {"0.000", "0", "0", "0"},
        {"0e0", "0", "0", "0"},
        {"0e999999999999999999999", "0", "0", "0"},
        {"-0.0e-99", "0", "0", "-0"},
        {"7", "7", "7", "7"},
        {"7.0", "7", "7", "7"},
        {"7.000000000000000000000000000000", "7", "7", "7"},
        {"70e-1", "7", "7", "7"},
        {"0.7e1", "7", "7", "7"},
        {"0.07E+2", "7", "7", "7"},
        {"0.000000000000000000000000000007e30", "7", "7", "7"},
        {"7000000000000000000000000000000e-30", "7", "7", "7"},
        {"-7", "-", "-7", "-7"},
        {"-70e-1", "-", "-7", "-7"},
        {"1234567890123456789e0", "1234567890123456789", "1234567890123456789", "1234567890123456768"},
    });
}

TEST(ANumber, CanReachButNotExceedTheBoundsOfItsKind) {
    expectNumbers({
        {"9223372036854775807", "9223372036854775807", "9223372036854775807", "9223372036854775808"},
        {"9223372036854775808", "9223372036854775808", "-", "9223372036854775808"},
        {"-9223372036854775808", "-", "-9223372036854775808", "-9223372036854775808"},
        {"-9223372036854775809", "-", "-", "-9223372036854775808"},
        {"922337203685477580.7e1", "9223372036854775807", "9223372036854775807", "9223372036854775808"},
        {"-922337203685477580.8e1", "-", "-9223372036854775808", "-9223372036854775808"},
        {"9999999999999999999", "9999999999999999999", "-", "1e+19"},
        {"18446744073709551615", "18446744073709551615", "-", "18446744073709551616"},
        {"18446744073709551616", "-", "-", "18446744073709551616"},
        {"18446744073709551615.0", "18446744073709551615", "-", "18446744073709551616"},
        {"184467440737095516150e-1", "18446744073709551615", "-", "18446744073709551616"},
        {"1e19", "10000000000000000000", "-", "1e+19"},
        {"1e20", "-", "-", "1e+20"},
        {"99999999999999999999999999999999", "-", "-", "1e+32"},
        {"1e308", "-", "-", "1e+308"},
        {"1e309", "-", "-", "-"},
        {"1e999999999999999999999", "-", "-", "-"},
    });
}

TEST(ANumber, IsNotAnIntegerWithAFraction) {
    expectNumbers({
        {"1.5", "-", "-", "1.5"},
        {"-1.5", "-", "-", "-1.5"},
        {"15e-1", "-", "-", "1.5"},
        {"0.1", "-", "-", "0.1"},
        {"1e-1", "-", "-", "0.1"},
        {"7.00000000000000000000000000000000000000001", "-", "-", "7"},
        {"18446744073709551614.5", "-", "-", "18446744073709551616"},
    });
}

TEST(ANumber, WithInvalidSyntaxIsAnInvalidValueInAValidDocument) {
    for (const char* token :
         {"00", "01",    "-01",  "00.5",  "1.",  "-",   "--1",   "-.5", "1.e5", "1e", "1e+", "1e-",
          "1E", "1e1.5", "1..5", "1.5.5", "1-2", "1+2", "1e5e5", "-e5", "1ee5", "0-", "0+"}) {
        EXPECT_EQ(shown<std::uint64_t>(token), "dataCorrupted []") << token;
        EXPECT_EQ(shown<std::int64_t>(token), "dataCorrupted []") << token;
        EXPECT_EQ(shown<double>(token), "dataCorrupted []") << token;
        EXPECT_EQ(shown<std::string>(token), "typeMismatch []") << token;
        EXPECT_EQ(shown<bool>(token), "typeMismatch []") << token;
    }
}

TEST(ANumber, FollowedByOtherCharactersMakesTheDocumentMalformed) {
    for (const char* token : {"0x10", "1_000", "1 000", "1,5", "1f", "Infinity", "NaN", "-Infinity", "+1",
                              ".5", "1\"\"", "1{}", "1true"}) {
        EXPECT_EQ(shown<double>(token), "dataCorrupted []") << token;
        // A malformed document fails the same way for every type.
        EXPECT_EQ(shown<std::string>(token), "dataCorrupted []") << token;
    }
    EXPECT_EQ(shown<double>(std::string_view("1\0", 2)), "dataCorrupted []");
    EXPECT_EQ(shown<double>(std::string_view("1\0"
                                             "2",
                                             3)),
              "dataCorrupted []");
    EXPECT_EQ(shown<double>("1 "), "1");
}

TEST(ANumber, CanHaveAMillionDigits) {
    const std::string zeros(1'000'000, '0');
    expectNumbers({
        {"1" + zeros, "-", "-", "-"},
        {"0." + zeros + "1e1000001", "1", "1", "1"},
        {"1" + zeros + "e-1000000", "1", "1", "1"},
        {"0." + zeros, "0", "0", "0"},
    });
}

TEST(ANumber, IsNeverConvertedFromAStringOrABoolean) {
    for (const char* token : {"\"1\"", "true", "false", "[]", "[1]", "{}"}) {
        EXPECT_EQ(shown<std::uint64_t>(token), "typeMismatch []") << token;
        EXPECT_EQ(shown<std::int64_t>(token), "typeMismatch []") << token;
        EXPECT_EQ(shown<double>(token), "typeMismatch []") << token;
    }
    EXPECT_EQ(shown<double>("null"), "valueNotFound []");
}

TEST(ANumber, FitsANarrowIntegerOnlyWithinItsRange) {
    EXPECT_EQ(shown<std::int32_t>("2147483647"), "2147483647");
    EXPECT_EQ(shown<std::int32_t>("-2147483648"), "-2147483648");
    EXPECT_EQ(shown<std::int32_t>("1e2"), "100");
    EXPECT_EQ(shown<std::uint32_t>("4294967295"), "4294967295");
    EXPECT_EQ(shown<std::int16_t>("-32768"), "-32768");
    EXPECT_EQ(shown<std::uint8_t>("255"), "255");
    EXPECT_EQ(shown<long long>("9223372036854775807"), "9223372036854775807");
    for (const char* token : {"2147483648", "-2147483649", "1.5", "2147483647.0000000001", "1e400"}) {
        EXPECT_EQ(shown<std::int32_t>(token), expected("-")) << token;
    }
    EXPECT_EQ(shown<std::uint32_t>("-1"), expected("-"));
    EXPECT_EQ(shown<std::uint8_t>("256"), expected("-"));
    EXPECT_EQ(shown<std::int32_t>("\"1\""), "typeMismatch []");
}

TEST(ANumber, FillsFieldsOfNarrowIntegers) {
    EXPECT_EQ(shown<Track>(R"({"number":7,"disc":2,"plays":[1,2]})"),
              R"({"number":7,"disc":2,"plays":[1,2]})");
    EXPECT_EQ(shown<Track>(R"({"number":7,"disc":null,"plays":[1,2147483648]})"),
              R"({"number":7,"disc":null,"plays":[]})");
    EXPECT_EQ(shown<Track>(R"({"number":2147483648})"), R"(dataCorrupted ["number"])");
    EXPECT_EQ(shown<Track>(R"({"number":7,"disc":32768})"), R"(dataCorrupted ["disc"])");
}

}  // namespace
}  // namespace VanticRestKit
