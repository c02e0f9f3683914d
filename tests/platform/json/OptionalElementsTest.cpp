// Lists whose elements may be null.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <platform/json/FaultText.h>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

struct Point {
    std::int64_t x{};
    friend bool operator==(const Point&, const Point&) = default;
};

struct Curve {
    std::vector<std::optional<Point>> points{};
    std::optional<std::vector<std::optional<std::string>>> labels{};
    std::vector<std::optional<Point>> marks{};
};

}  // namespace

template <>
const TypePlan& planOf<Point>() {
    static const TypePlan& plan = mapping::object<Point>(mapping::required<&Point::x>("x"));
    return plan;
}

template <>
const TypePlan& planOf<Curve>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Curve>(
        required<&Curve::points>("points"),
        lenient<&Curve::labels>("labels"),
        lenient<&Curve::marks, keepDecodable>("marks"));
    // clang-format on
    return plan;
}

namespace {

using test::decoded;
using test::failureOf;
using test::shown;

template <class T>
using Optionals = std::vector<std::optional<T>>;

TEST(AListOfOptionals, HasAnEmptyElementForEachNull) {
    EXPECT_EQ(decoded<Optionals<std::string>>(R"([null,"a",null])"),
              (Optionals<std::string>{std::nullopt, "a", std::nullopt}));
    EXPECT_EQ(decoded<Optionals<std::uint64_t>>("[1,null]"), (Optionals<std::uint64_t>{1, std::nullopt}));
    EXPECT_EQ(decoded<Optionals<bool>>("[null , true ]"), (Optionals<bool>{std::nullopt, true}));
    EXPECT_EQ(decoded<Optionals<Point>>(R"([{"x":1},null,{"x":2}])"),
              (Optionals<Point>{Point{1}, std::nullopt, Point{2}}));
    EXPECT_EQ(decoded<Optionals<std::vector<Point>>>(R"([null,[],[{"x":1}]])"),
              (Optionals<std::vector<Point>>{std::nullopt, std::vector<Point>{}, std::vector{Point{1}}}));
    EXPECT_EQ(decoded<std::optional<Optionals<Point>>>("[null]"), (Optionals<Point>{std::nullopt}));
}

TEST(AListOfOptionals, FailsAtAnElementOfAnotherType) {
    EXPECT_EQ(failureOf<Optionals<std::string>>(R"([null,1])"), "typeMismatch [1]");
    EXPECT_EQ(failureOf<Optionals<Point>>(R"([null,"a"])"), "typeMismatch [1]");
    EXPECT_EQ(failureOf<Optionals<Point>>(R"([null,{}])"), R"(keyNotFound [1,"x"])");
    EXPECT_EQ(failureOf<Optionals<Point>>(R"([null,{"x":1},{"x":null}])"), R"(valueNotFound [2,"x"])");
}

TEST(AListOfOptionals, FailsAtATokenThatOnlyBeginsLikeNull) {
    for (const char* const json : {"[n]", "[nul]", "[nulll]", "[null null]", "[null"}) {
        EXPECT_EQ(failureOf<Optionals<std::string>>(json), "dataCorrupted []") << json;
        EXPECT_EQ(failureOf<Optionals<Point>>(json), "dataCorrupted []") << json;
    }
}

TEST(AListOfOptionals, FollowsTheStrictnessOfItsRow) {
    EXPECT_EQ(shown<Curve>(R"({"points":[null,{"x":1}],"labels":[null,"a"],"marks":[null,{"x":2}]})"),
              R"({"points":[null,{"x":1}],"labels":[null,"a"],"marks":[null,{"x":2}]})");
    EXPECT_EQ(failureOf<Curve>(R"({"points":[null,{"x":"1"}]})"), R"(typeMismatch ["points",1,"x"])");
    EXPECT_EQ(shown<Curve>(R"({"points":[],"labels":[null,1]})"),
              R"({"points":[],"labels":null,"marks":[]})");
}

TEST(AListOfOptionals, KeepsNullsEvenIfItDropsFaultyElements) {
    EXPECT_EQ(shown<Curve>(R"({"points":[],"marks":[null,{"x":1},{},7,null,"x"]})"),
              R"({"points":[],"labels":null,"marks":[null,{"x":1},null]})");
}

TEST(AListOfOptionals, IsNamedAfterItsElements) {
    EXPECT_EQ(mapping::planName(planOf<Optionals<std::string>>()), "[String?]");
    EXPECT_EQ(test::faultText<Curve>(R"({"points":[],"labels":7})"),
              "/labels lenient: [String?], number, empty\n");
}

}  // namespace
}  // namespace VanticRestKit
