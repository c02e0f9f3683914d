#include <VanticRestKit/platform/json/ValueText.h>

#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/Table.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct Note {
    std::optional<VanticRestKit::Date> at{};
    std::vector<std::string> texts{};
    VanticRestKit::Dictionary more{};
};

struct Notebook {
    std::vector<Note> notes{};
};

}  // namespace

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<Note>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Note>(
        lenient<&Note::at, deviceDate>("at"),
        lenient<&Note::texts>("texts"),
        lenient<&Note::more>("more"));
    // clang-format on
    return plan;
}

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<Notebook>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Notebook>(
        lenient<&Notebook::notes>("notes"));
    // clang-format on
    return plan;
}

namespace VanticRestKit {
namespace {

std::string dateText(double seconds) {
    const std::string text = valueText(Note{.at = Date(std::chrono::duration<double>(seconds))});
    constexpr std::string_view prefix = R"({"at":)";
    constexpr std::string_view suffix = R"(,"texts":[],"more":{}})";
    EXPECT_TRUE(text.starts_with(prefix) && text.ends_with(suffix)) << text;
    return text.substr(prefix.size(), text.size() - prefix.size() - suffix.size());
}

TEST(ValueText, WritesADateInUTC) {
    EXPECT_EQ(dateText(0), R"("1970-01-01T00:00:00Z")");
    EXPECT_EQ(dateText(1577934245), R"("2020-01-02T03:04:05Z")");
    EXPECT_EQ(dateText(-1), R"("1969-12-31T23:59:59Z")");
}

TEST(ValueText, WritesADateOfTheYear10000AsANumber) {
    // The last one before it.
    EXPECT_EQ(dateText(std::nextafter(253402300800, 0)), R"("9999-12-31T23:59:59.999969Z")");
    EXPECT_EQ(dateText(253402300800), "253402300800");
}

TEST(ValueText, WritesEachKindOfAnyValue) {
    const auto written = [](AnyValue value) {
        Dictionary more;
        more.emplace("k", std::move(value));
        const std::string text = valueText(Note{.more = std::move(more)});
        constexpr std::string_view prefix = R"({"at":null,"texts":[],"more":{"k":)";
        EXPECT_TRUE(text.starts_with(prefix)) << text;
        return text.substr(std::min(prefix.size(), text.size()));
    };
    EXPECT_EQ(written("a"), R"("a"}})");
    EXPECT_EQ(written(std::int64_t{-3}), "-3}}");
    EXPECT_EQ(written(true), "true}}");
    EXPECT_EQ(written(0.5), "0.5}}");
    EXPECT_EQ(written(AnyValue()), "null}}");
}

TEST(ValueText, WritesAtMostSixFractionDigitsOfADate) {
    EXPECT_EQ(dateText(1577934245.25), R"("2020-01-02T03:04:05.25Z")");
    EXPECT_EQ(dateText(1577934245.01), R"("2020-01-02T03:04:05.01Z")");
    EXPECT_EQ(dateText(-0.5), R"("1969-12-31T23:59:59.5Z")");
    EXPECT_EQ(dateText(0.123456789), R"("1970-01-01T00:00:00.123457Z")");
}

TEST(ValueText, RoundsAFractionUpToTheNextSecond) {
    EXPECT_EQ(dateText(59.9999999), R"("1970-01-01T00:01:00Z")");
    EXPECT_EQ(dateText(0.0000001), R"("1970-01-01T00:00:00Z")");
}

TEST(ValueText, WritesADateOutsideFourDigitYearsInSeconds) {
    EXPECT_EQ(dateText(-62135596800), R"("0001-01-01T00:00:00Z")");
    EXPECT_EQ(dateText(-62135596801), "-62135596801");
    EXPECT_EQ(dateText(253402300799), R"("9999-12-31T23:59:59Z")");
    EXPECT_EQ(dateText(253402300800), "253402300800");
    EXPECT_EQ(dateText(1e300), numberText(1e300));
}

TEST(ValueText, EscapesSpecialCharactersInStrings) {
    using namespace std::string_view_literals;
    EXPECT_EQ(quotedText("a\"b\\c\nd\re\tf/g"), R"("a\"b\\c\nd\re\tf/g")");
    EXPECT_EQ(quotedText("\0\x01\x1F\x7F\xC3\xA9"sv), "\"\\u0000\\u0001\\u001f\x7F\xC3\xA9\"");
    EXPECT_EQ(quotedText(""), R"("")");
    EXPECT_EQ(quotedText("\"\""), R"("\"\"")");
}

TEST(ValueText, WritesTheShortestFormOfANumberWithoutATrailingFraction) {
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(-2), "-2");
    EXPECT_EQ(numberText(1e16), "10000000000000000");
    EXPECT_EQ(numberText(-99999999999999984.0), "-99999999999999984");
    EXPECT_EQ(numberText(1e17), "1e+17");
    EXPECT_EQ(numberText(1.5e-9), "1.5e-09");
}

TEST(ValueText, WritesTheKeysOfAFreeFormDictionarySorted) {
    const Note note{.more = {{"c", true}, {"a", std::int64_t{-3}}, {"b", "x\"y"}, {"d", 2.5}, {"e", false}}};
    EXPECT_EQ(valueText(note),
              R"({"at":null,"texts":[],"more":{"a":-3,"b":"x\"y","c":true,"d":2.5,"e":false}})");
}

TEST(ValueText, IndentsByTwoSpacesAndKeepsEmptyContainersOnOneLine) {
    const Notebook book{.notes = {Note{.texts = {"a", "b"}}, Note{.more = {{"k", "v"}}}}};
    EXPECT_EQ(valueText(book, ValueLayout::indented), R"({
  "notes": [
    {
      "at": null,
      "texts": [
        "a",
        "b"
      ],
      "more": {}
    },
    {
      "at": null,
      "texts": [],
      "more": {
        "k": "v"
      }
    }
  ]
})");
    EXPECT_EQ(valueText(Notebook{}, ValueLayout::indented), "{\n  \"notes\": []\n}");
}

}  // namespace
}  // namespace VanticRestKit
