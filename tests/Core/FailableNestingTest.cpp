// FailableCodable values nested inside each other.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/FailableCodable.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <platform/json/FaultText.h>
#include <support/SmallStack.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

/// How many times a mark was read.
std::size_t readCount = 0;

bool markOf(std::string_view text, Date& mark) {
    ++readCount;
    mark = Date();
    return text == "good";
}

/// A recursive type of FailableCodable branches. Each level of it is two levels of the document.
struct Branch {
    Date mark{};
    std::vector<FailableCodable<Branch>> twigs{};
};

/// A FailableCodable in every kind of row.
struct Kinds {
    std::optional<FailableCodable<std::string>> optional{};
    std::optional<FailableCodable<std::string>> lenient{};
    FailableCodable<std::string> defaulted{};
    FailableCodable<std::string> required{};
    std::optional<FailableCodable<std::vector<std::string>>> list{};
    FailableCodable<std::optional<std::string>> ofOptional{};
    FailableCodable<FailableCodable<std::string>> twice{};
};

struct Needed {
    FailableCodable<std::string> value{};
};

}  // namespace

template <>
const TypePlan& planOf<Branch>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Branch>(
        required<&Branch::twigs>("twigs"),
        required<&Branch::mark, markOf>("mark"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Kinds>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Kinds>(
        optional<&Kinds::optional>("optional"),
        lenient<&Kinds::lenient>("lenient"),
        defaulted<&Kinds::defaulted>("defaulted"),
        defaulted<&Kinds::required>("required"),
        optional<&Kinds::list>("list"),
        lenient<&Kinds::ofOptional>("ofOptional"),
        lenient<&Kinds::twice>("twice"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Needed>() {
    static const TypePlan& plan = mapping::object<Needed>(mapping::required<&Needed::value>("value"));
    return plan;
}

namespace {

using test::decodable;
using test::failureOf;
using test::Outcome;
using test::shown;

constexpr std::size_t deepest = 255;

/// Nested branches. `marks[i]` is the mark of the i-th branch, counted from the outermost.
std::string branches(const std::vector<std::string>& marks, const std::string& core = "") {
    std::string text;
    for (std::size_t i = 0; i < marks.size(); ++i) text += R"({"twigs":[)";
    text += core;
    for (std::size_t i = marks.size(); i-- > 0;) text += R"(],"mark":")" + marks[i] + "\"}";
    return text;
}

std::vector<std::string> marks(std::size_t levels, const std::string& mark) {
    return std::vector<std::string>(levels, mark);
}

/// The number of nested branches.
std::size_t depthOf(const Branch& branch) {
    std::size_t depth = 1;
    const Branch* at = &branch;
    for (; !at->twigs.empty() && at->twigs.front().wrappedValue; ++depth) {
        at = &*at->twigs.front().wrappedValue;
    }
    return depth;
}

TEST(NestedAttempts, KeepWhatDecodesAndDropWhatDoesNot) {
    const auto depthWith = [](std::vector<std::string> given) {
        const std::optional<Branch> branch = test::decoded<Branch>(branches(given));
        return branch ? depthOf(*branch) : 0;
    };
    EXPECT_EQ(depthWith(marks(5, "good")), 5U);
    EXPECT_EQ(depthWith({"good", "good", "good", "good", "bad"}), 4U);
    EXPECT_EQ(depthWith({"good", "good", "bad", "good", "good"}), 2U);
    EXPECT_EQ(depthWith({"good", "bad", "bad", "bad", "bad"}), 1U);
    EXPECT_EQ(depthWith({"bad", "good", "good", "good", "good"}), 0U);
}

TEST(NestedAttempts, ContinueWithTheNextElementAfterAFailure) {
    const std::string good = R"({"mark":"good","twigs":[]})";
    const std::string bad = R"({"mark":"bad","twigs":[)" + good + "]}";
    const std::string both =
        bad + "," + good + ",7," + R"({"twigs":[)" + bad + "," + good + R"(],"mark":"good"})";
    const std::string date = "\"1970-01-01T00:00:00Z\"";
    const std::string leaf = "{\"mark\":" + date + ",\"twigs\":[]}";
    EXPECT_EQ(shown<std::vector<FailableCodable<Branch>>>("[" + both + "]"),
              "[null," + leaf + ",null,{\"mark\":" + date + ",\"twigs\":[null," + leaf + "]}]");
}

TEST(NestedAttempts, ReadEachValueOnceInEachEngine) {
    for (const char* const mark : {"good", "bad"}) {
        for (const std::size_t levels : {std::size_t{22}, deepest}) {
            const std::string json = branches(marks(levels, mark));
            readCount = 0;
            (void)JSONDecoder().decode<Branch>(Data(json));
            EXPECT_LE(readCount, 2 * levels) << mark;
            readCount = 0;
            (void)JSONDecoder().decode<FailableCodable<Branch>>(Data(json));
            EXPECT_LE(readCount, levels) << mark;
        }
    }
}

TEST(NestedAttempts, NeedLittleStackAtTheMaximumDepth) {
    std::vector<std::string> half = marks(deepest, "good");
    for (std::size_t i = 0; i < deepest; i += 2) half[i] = "bad";
    for (const std::vector<std::string>& given : {marks(deepest, "good"), marks(deepest, "bad"), half}) {
        for (const char* const core : {"", "7", "{}", "[[]]"}) {
            test::onASmallStack([&] {
                const Data document(branches(given, core));
                EXPECT_EQ(test::decodeByBoth(decodable<Branch>, document).difference, "");
                EXPECT_EQ(test::decodeByBoth(decodable<FailableCodable<Branch>>, document).difference, "");
            });
        }
    }
}

TEST(NestedAttempts, DoNotHideABrokenDocument) {
    const std::string json = branches(marks(3, "good"));
    for (std::size_t size = 0; size < json.size(); ++size) {
        EXPECT_EQ(failureOf<FailableCodable<Branch>>(json.substr(0, size)), "dataCorrupted []");
        EXPECT_EQ(failureOf<std::vector<FailableCodable<Branch>>>("[7," + json.substr(0, size)),
                  "dataCorrupted []");
    }
    const std::string tooDeep = branches(marks(deepest + 2, "good"));
    EXPECT_EQ(failureOf<FailableCodable<Branch>>(tooDeep), "dataCorrupted []");
}

TEST(NestedAttempts, DoNotHideAValueThatExceedsTheMemoryBudget) {
    std::string elements = R"({"twigs":[],"mark":"good"})";
    for (int i = 0; i < 10; ++i) elements += "," + elements;
    const Data document(branches(marks(3, "good"), elements));
    const Outcome outcome = test::decodeByBoth(decodable<FailableCodable<Branch>>, document);
    EXPECT_EQ(outcome.difference, "");
    EXPECT_GE(outcome.memory, 1024 * sizeof(Branch));
    const Outcome beyond =
        test::decodeByBoth(decodable<FailableCodable<Branch>>, document, outcome.memory - 1);
    EXPECT_EQ(beyond.difference, "");
    EXPECT_EQ(beyond.failure, "dataCorrupted []");
}

TEST(AnAttempt, IsEmptyForNullInEachKindOfRowThatAllowsNull) {
    EXPECT_EQ(shown<Kinds>("{}"),
              shown<Kinds>(R"({"optional":null,"lenient":null,"defaulted":null,"list":null})"));
    const std::optional<Kinds> rows = test::decoded<Kinds>(R"({"optional":null,"lenient":null,"list":null})");
    ASSERT_TRUE(rows);
    EXPECT_FALSE(rows->optional);
    EXPECT_FALSE(rows->lenient);
    EXPECT_FALSE(rows->list);
}

TEST(AnAttempt, IsEmptyForNullInARequiredRow) {
    EXPECT_EQ(shown<Needed>(R"({"value":null})"), R"({"value":null})");
    EXPECT_EQ(shown<Needed>(R"({"value":"a"})"), R"({"value":"a"})");
    EXPECT_EQ(failureOf<Needed>("{}"), R"(keyNotFound ["value"])");
}

TEST(AnAttempt, HoldsTheValueInEveryKindOfRow) {
    EXPECT_EQ(
        shown<Kinds>(
            R"({"optional":"a","lenient":"b","defaulted":"c","required":"d","list":["e"],"ofOptional":"f","twice":"g"})"),
        R"({"optional":"a","lenient":"b","defaulted":"c","required":"d","list":["e"],"ofOptional":"f","twice":"g"})");
    EXPECT_EQ(
        shown<Kinds>(R"({"optional":1,"lenient":[],"list":["e",1],"ofOptional":{},"twice":2})"),
        R"({"optional":null,"lenient":null,"defaulted":null,"required":null,"list":null,"ofOptional":null,"twice":null})");
    const std::optional<Kinds> rows = test::decoded<Kinds>(R"({"optional":1,"list":["e",1],"twice":2})");
    ASSERT_TRUE(rows);
    EXPECT_TRUE(rows->optional && !rows->optional->wrappedValue);
    EXPECT_TRUE(rows->list && !rows->list->wrappedValue);
    EXPECT_TRUE(rows->twice.wrappedValue && !rows->twice.wrappedValue->wrappedValue);
}

TEST(AnAttempt, ReportsWhatItDropped) {
    EXPECT_EQ(test::faultText<Kinds>(R"({"optional":1,"list":["e",2]})"),
              "/optional lenient: String, number, empty\n/list/1 lenient: String, number, empty\n");
    EXPECT_EQ(test::faultText<Kinds>(R"({"optional":null,"lenient":null,"defaulted":null,"list":null})"), "");
}

}  // namespace
}  // namespace VanticRestKit
