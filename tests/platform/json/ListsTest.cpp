// Lists: how they grow, the effect of one faulty element, and elements of one of several types.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>
#include <VanticRestKit/platform/json/OneOf.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace VanticRestKit {
namespace {

/// Large, so that memory for many of them is noticeable.
struct Wide {
    std::optional<std::string> a{};
    std::optional<std::string> b{};
    std::optional<std::string> c{};
    std::optional<std::string> d{};
    std::optional<std::string> e{};
    std::optional<std::string> f{};
};

}  // namespace

// Reported by their names without a namespace.
struct Circle {
    std::uint64_t radius{};
    std::vector<std::string> tags{};
};
struct Square {
    std::uint64_t side{};
    std::optional<std::string> colour{};
};

namespace {

/// A circle or a square.
class Shape {
public:
    Shape(Circle circle) : held_(std::move(circle)) {}
    Shape(Square square) : held_(std::move(square)) {}

    template <class T>
    const T* as() const {
        return std::get_if<T>(&held_);
    }

private:
    std::variant<Circle, Square> held_;
};

struct Drawing {
    std::vector<Shape> shapes{};
    std::optional<Shape> best{};
    std::vector<Circle> circles{};
    std::vector<Circle> needed{};
    std::optional<std::vector<std::vector<std::string>>> words{};
};

}  // namespace

template <>
const TypePlan& planOf<Wide>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Wide>(
        lenient<&Wide::a>("a"),
        lenient<&Wide::b>("b"),
        lenient<&Wide::c>("c"),
        lenient<&Wide::d>("d"),
        lenient<&Wide::e>("e"),
        lenient<&Wide::f>("f"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Circle>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Circle>(
        required<&Circle::radius>("radius"),
        lenient<&Circle::tags>("tags"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Square>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Square>(
        required<&Square::side>("side"),
        optional<&Square::colour>("colour"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Drawing>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Drawing>(
        lenient<&Drawing::shapes, eachOneOf<Circle, Square>>("shapes"),
        lenient<&Drawing::best, oneOf<Circle, Square>>("best"),
        lenient<&Drawing::circles, keepDecodable>("circles"),
        required<&Drawing::needed, keepDecodable>("needed"),
        lenient<&Drawing::words>("words"));
    // clang-format on
    return plan;
}

namespace {

using test::failureOf;
using test::shown;

/// The capacity of the list after `json` is read.
template <class T>
std::size_t capacityFor(const std::string& json) {
    std::vector<T> list;
    EXPECT_TRUE(json::FastEngine(Data(json), JSONDecoder::defaultMemoryBudget)
                    .decode(planOf<std::vector<T>>(), &list));
    return list.capacity();
}

std::string drawing(const std::string& members) { return shown<Drawing>("{\"needed\":[]," + members + "}"); }

std::string drawn(const std::string& shapes, const std::string& best = "null",
                  const std::string& circles = "[]") {
    return "{\"shapes\":" + shapes + ",\"best\":" + best + ",\"circles\":" + circles +
           ",\"needed\":[],\"words\":null}";
}

TEST(AList, ReservesNoMoreThanItsDocumentSizeAfterSmallElementsAndALargeOne) {
    const std::string large = "{\"a\":\"" + std::string(1'000'000, 'x') + "\"}";
    for (const char* const small : {"{},", "{},{},", "{},{},{},{},{},{},{},{},{},"}) {
        EXPECT_LE(capacityFor<Wide>("[" + std::string(small) + large + "]") * sizeof(Wide),
                  2 * large.size() + 4 * sizeof(Wide))
            << small;
    }
}

TEST(AList, ReservesTheRightCapacityForSimilarElements) {
    std::string json = "[";
    for (int i = 0; i < 1000; ++i)
        json += R"({"a":"some text of no great length, as titles are","b":"another one of the same kind",)"
                R"("c":"and one of them is a little longer than all the others are"},)";
    json.back() = ']';
    const std::size_t capacity = capacityFor<Wide>(json);
    EXPECT_GE(capacity, 1000U);
    EXPECT_LE(capacity, 1100U);
}

TEST(AList, AllocatesLittleMoreThanItsElementsWhateverFollowsIt) {
    for (const std::size_t count : {1U, 2U, 3U, 10U, 100U}) {
        std::string list = "[";
        for (std::size_t i = 0; i < count; ++i) list += "[\"a\"],";
        list.back() = ']';
        const std::string json = "[" + list + "," + std::string(100'000, ' ') + "[]]";
        std::vector<std::vector<std::vector<std::string>>> lists;
        ASSERT_TRUE(json::FastEngine(Data(json), JSONDecoder::defaultMemoryBudget)
                        .decode(planOf<decltype(lists)>(), &lists));
        ASSERT_EQ(lists.at(0).size(), count);
        for (const auto& inner : lists.at(0)) EXPECT_LE(inner.capacity(), 2U);
    }
}

TEST(AList, FailsWithThePathOfTheElementInANestedList) {
    using Lists = std::vector<std::vector<std::uint64_t>>;
    EXPECT_EQ(shown<Lists>("[[1],[],[2,3]]"), "[[1],[],[2,3]]");
    EXPECT_EQ(failureOf<Lists>("[[1],[2,\"3\"]]"), "typeMismatch [1,1]");
    EXPECT_EQ(failureOf<Lists>("[[1],[2,-3]]"), "dataCorrupted [1,1]");
    EXPECT_EQ(failureOf<Lists>("[[1],[null]]"), "valueNotFound [1,0]");
    EXPECT_EQ(failureOf<Lists>("[[1],{}]"), "typeMismatch [1]");
    EXPECT_EQ(failureOf<Lists>("[[1],2]"), "typeMismatch [1]");
    EXPECT_EQ(drawing(R"("words":[["a"],["b",1]])"), drawn("[]"));
    EXPECT_EQ(drawing(R"("words":[["a"],[]])").find(R"("words":[["a"],[]])"), drawn("[]").find("\"words\""));
}

TEST(ATolerantList, DropsFaultyElementsAndKeepsTheOrder) {
    EXPECT_EQ(
        drawing(
            R"("circles":[{"radius":1},{},{"radius":2,"tags":["t"]},null,7,"c",[],{"radius":-1},{"radius":3}])"),
        drawn("[]", "null", R"([{"radius":1,"tags":[]},{"radius":2,"tags":["t"]},{"radius":3,"tags":[]}])"));
    EXPECT_EQ(drawing(R"("circles":[])"), drawn("[]"));
    EXPECT_EQ(drawing(R"("circles":[null,{}])"), drawn("[]"));
}

TEST(ATolerantList, MustBeAList) {
    EXPECT_EQ(failureOf<Drawing>(R"({"needed":{}})"), R"(typeMismatch ["needed"])");
    EXPECT_EQ(failureOf<Drawing>(R"({"needed":null})"), R"(valueNotFound ["needed"])");
    EXPECT_EQ(failureOf<Drawing>("{}"), R"(keyNotFound ["needed"])");
    EXPECT_EQ(drawing(R"("circles":{"radius":1})"), drawn("[]"));
}

TEST(ATolerantList, FailsIfTheDocumentIsMalformed) {
    EXPECT_EQ(failureOf<Drawing>(R"({"needed":[{"radius":1},{"radius":]})"), "dataCorrupted []");
    EXPECT_EQ(failureOf<Drawing>(R"({"needed":[{"radius":1},}]})"), "dataCorrupted []");
}

const std::string circle = R"({"Circle":{"radius":1,"tags":["t"]}})";
const std::string square = R"({"Square":{"side":2,"colour":"c"}})";

TEST(AMixedList, TriesTheTypesInOrderForEachElement) {
    EXPECT_EQ(
        drawing(R"("shapes":[{"side":2,"colour":"c"},{"radius":1,"tags":["t"]},{"side":2,"colour":"c"}])"),
        drawn("[" + square + "," + circle + "," + square + "]"));
    // An element that fits both types is decoded as the first.
    EXPECT_EQ(drawing(R"("shapes":[{"side":2,"colour":"c","radius":1,"tags":["t"]}])"),
              drawn("[" + circle + "]"));
    // Nothing of the first attempt is left in the second.
    EXPECT_EQ(drawing(R"("shapes":[{"tags":["t"],"radius":-1,"side":2,"colour":"c"}])"),
              drawn("[" + square + "]"));
}

TEST(AMixedList, OmitsElementsThatAreNoneOfTheTypes) {
    EXPECT_EQ(
        drawing(
            R"("shapes":[{},null,1,"s",[],{"radius":"1"},{"side":2,"colour":1},{"radius":1,"tags":["t"]}])"),
        drawn("[" + circle + "]"));
    EXPECT_EQ(drawing(R"("shapes":{"radius":1})"), drawn("[]"));
}

TEST(AMixedList, FailsIfTheDocumentIsMalformedInAnyAttempt) {
    for (const char* const element :
         {"{\"radius\":1", "{\"side\":2,}x", "{\"side\":tru}", "{\"a\":1,\"side\"}", "{"}) {
        EXPECT_EQ(failureOf<Drawing>(R"({"needed":[],"shapes":[)" + std::string(element) + "]}"),
                  "dataCorrupted []");
        EXPECT_EQ(failureOf<Drawing>(R"({"needed":[],"best":)" + std::string(element) + "}"),
                  "dataCorrupted []");
    }
    // Too deep for either type.
    const std::string deep = std::string(510, '[') + std::string(510, ']');
    EXPECT_EQ(failureOf<Drawing>(R"({"needed":[],"shapes":[{"x":)" + deep.substr(1, 1018) + ",\"side\":2}]}"),
              "");
    EXPECT_EQ(failureOf<Drawing>(R"({"needed":[],"shapes":[{"x":)" + deep + ",\"side\":2}]}"),
              "dataCorrupted []");
}

TEST(AMixedList, OmitsAnElementWithAnInvalidKey) {
    EXPECT_EQ(drawing(R"("shapes":[{"radius":1,"side":2,"\ud800":1},{"radius":1,"tags":["t"]}])"),
              drawn("[" + circle + "]"));
}

TEST(AMixedField, HoldsTheFirstTypeThatDecodes) {
    EXPECT_EQ(drawing(R"("best":{"side":2,"colour":"c"})"), drawn("[]", square));
    EXPECT_EQ(drawing(R"("best":{"radius":1,"tags":["t"],"side":2})"), drawn("[]", circle));
    for (const char* const none : {"null", "{}", "1", "\"s\"", "[]", "{\"side\":2,\"colour\":[]}"}) {
        EXPECT_EQ(drawing(R"("best":)" + std::string(none)), drawn("[]")) << none;
    }
}

TEST(AnOptionalAtTheRoot, CanHoldAnyDecodableType) {
    EXPECT_EQ(shown<std::optional<std::uint64_t>>("null"), "null");
    EXPECT_EQ(shown<std::optional<std::uint64_t>>("7"), "7");
    EXPECT_EQ(shown<std::optional<std::uint64_t>>("-7"), "dataCorrupted []");
    EXPECT_EQ(shown<std::optional<std::vector<std::string>>>("[\"a\"]"), "[\"a\"]");
    EXPECT_EQ(shown<std::optional<std::vector<std::string>>>("[null]"), "valueNotFound [0]");
    EXPECT_EQ(shown<std::optional<Circle>>("[]"), "typeMismatch []");
}

}  // namespace
}  // namespace VanticRestKit
