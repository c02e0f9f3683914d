// The memory limit of a decoded value, and that exceeding it is never tolerated.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>
#include <VanticRestKit/platform/json/OneOf.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

/// Two bytes of JSON, but about a kilobyte in memory.
struct Wide {
    std::array<char, 1000> bytes{};
    std::optional<std::string> name{};
    std::vector<std::string> words{};
};

/// The same with a required name.
struct Named {
    std::array<char, 1000> bytes{};
    std::vector<std::string> words{};
    std::string name{};
};

class Boxed {
public:
    Boxed(Named named) : held_(std::move(named)) {}
    template <class T>
    const T* as() const {
        return &held_;
    }

private:
    Named held_;
};

struct Page {
    std::vector<Wide> lenientList{};
    std::vector<Wide> requiredList{};
    std::vector<Named> tolerantList{};
    std::vector<Boxed> choices{};
    std::optional<Boxed> choice{};
    Dictionary free{};
    std::optional<std::string> text{};
};

}  // namespace

template <>
const TypePlan& planOf<Wide>() {
    using namespace mapping;
    static const TypePlan& plan = object<Wide>(lenient<&Wide::name>("name"), lenient<&Wide::words>("words"));
    return plan;
}
template <>
const TypePlan& planOf<Named>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Named>(
        lenient<&Named::words>("words"),
        required<&Named::name>("name"));
    // clang-format on
    return plan;
}
template <>
const TypePlan& planOf<Page>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Page>(
        lenient<&Page::lenientList>("lenientList"),
        defaulted<&Page::requiredList>("requiredList"),
        lenient<&Page::tolerantList, keepDecodable>("tolerantList"),
        lenientObject("inside",
            lenient<&Page::choices, eachOneOf<Named>>("choices"),
            lenient<&Page::choice, oneOf<Named>>("choice")),
        lenient<&Page::free>("free"),
        lenient<&Page::text>("text"));
    // clang-format on
    return plan;
}

namespace {

using test::decodable;
using test::Outcome;

constexpr std::uint64_t noLimit = ~std::uint64_t{0};
const std::string broken = "dataCorrupted []";

/// `count` times `element`, with commas between.
std::string repeated(std::size_t count, const std::string& element) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += (i == 0 ? "" : ",") + element;
    return text;
}

Outcome outcomeWithin(std::uint64_t budget, const std::string& json) {
    Outcome outcome = test::decodeByBoth(decodable<Page>, Data(json), budget);
    EXPECT_EQ(outcome.difference, "") << json.substr(0, 100);
    return outcome;
}

/// The memory of a document's value. Checks that both engines decode it with that budget, and that neither does with
/// less.
std::uint64_t memoryOf(const std::string& json) {
    const Outcome outcome = outcomeWithin(noLimit, json);
    EXPECT_EQ(outcome.failure, "") << json.substr(0, 100);
    EXPECT_EQ(outcomeWithin(outcome.memory, json).failure, "") << json.substr(0, 100);
    for (const std::uint64_t less : {outcome.memory - 1, outcome.memory / 2, outcome.memory / 10}) {
        EXPECT_EQ(outcomeWithin(less, json).failure, broken) << json.substr(0, 100);
    }
    return outcome.memory;
}

TEST(MemoryBudget, IsExceededByNotedMemoryUntilItIsGivenBack) {
    MemoryBudget budget(100);
    EXPECT_TRUE(budget.take(60));
    const std::uint64_t before = budget.used();
    budget.note(40);
    EXPECT_FALSE(budget.isExceeded());
    budget.note(1);
    EXPECT_TRUE(budget.isExceeded());
    EXPECT_FALSE(budget.wasRefused());
    budget.giveBack(before);
    EXPECT_FALSE(budget.isExceeded());
}

TEST(MemoryBudget, StaysExceededOnceItHasRefused) {
    MemoryBudget budget(100);
    EXPECT_FALSE(budget.take(101));
    budget.giveBack(0);
    EXPECT_TRUE(budget.wasRefused());
    EXPECT_TRUE(budget.isExceeded());
    EXPECT_FALSE(budget.take(1));
}

TEST(TheMemoryBudget, IsNeverMoreThanAProcessCanAddress) {
    constexpr std::uint64_t addressable = std::numeric_limits<std::ptrdiff_t>::max();
    MemoryBudget memory(noLimit);
    EXPECT_EQ(memory.limit(), addressable);
    EXPECT_TRUE(memory.take(addressable));
    EXPECT_FALSE(memory.take(1));
}

TEST(TheMemoryBudget, CountsTheElementsOfAListWithTheirFullSize) {
    const std::string elements = "[" + repeated(1000, "{}") + "]";
    for (const char* const key : {"lenientList", "requiredList"}) {
        const std::uint64_t memory = memoryOf("{\"" + std::string(key) + "\":" + elements + "}");
        EXPECT_GE(memory, 1000 * sizeof(Wide));
        EXPECT_LE(memory, 2 * 1000 * sizeof(Wide));
    }
}

TEST(TheMemoryBudget, AppliesInsideATolerantListOrAChoice) {
    const std::string elements = "[" + repeated(1000, R"({"name":"n"})") + "]";
    EXPECT_GE(memoryOf(R"({"tolerantList":)" + elements + "}"), 1000 * sizeof(Named));
    EXPECT_GE(memoryOf(R"({"inside":{"choices":)" + elements + "}}"), 1000 * sizeof(Named));
    EXPECT_GE(memoryOf(R"({"inside":{"choice":{"name":"n"}}})"), sizeof(Named));
    // Deeper down, in an element that a list would drop.
    const std::string words = "[" + repeated(1000, "\"w\"") + "]";
    EXPECT_GE(memoryOf(R"({"tolerantList":[{"name":"n","words":)" + words + "}]}"),
              1000 * sizeof(std::string));
    EXPECT_GE(memoryOf(R"({"inside":{"choices":[{"name":"n","words":)" + words + "}]}}"),
              1000 * sizeof(std::string));
}

TEST(TheMemoryBudget, CountsLongStringsAndFreeFormData) {
    const std::string longText(100'000, 'a');
    EXPECT_EQ(memoryOf(R"({"text":")" + longText + "\"}"), longText.size());
    EXPECT_EQ(memoryOf(R"({"text":"\n)" + longText + "\"}"), longText.size() + 1);
    EXPECT_GE(memoryOf(R"({"lenientList":[{"words":[")" + longText + "\"]}]}"), longText.size());
    EXPECT_GE(memoryOf(R"({"free":{"a":")" + longText + "\"}}"), longText.size());
    std::string members;
    for (int i = 0; i < 1000; ++i) members += (i == 0 ? "\"" : ",\"") + std::to_string(i) + "\":1";
    EXPECT_GE(memoryOf(R"({"free":{)" + members + "}}"), 1000 * sizeof(Dictionary::value_type));
    // The keys of omitted values are kept until the object ends, since a later key may be equal.
    std::string nulls;
    for (int i = 0; i < 1000; ++i) nulls += (i == 0 ? "\"" : ",\"") + std::to_string(i) + "\":null";
    EXPECT_EQ(outcomeWithin(1000 * sizeof(std::string), R"({"free":{)" + nulls + "}}").failure, broken);
}

TEST(TheMemoryBudget, DoesNotCountDroppedElements) {
    const std::string words = "[" + repeated(1000, "\"w\"") + "]";
    const std::string unnamed = R"({"words":)" + words + "}";
    for (const char* const rest : {"", ",7"}) {
        const std::string elements = "[" + repeated(100, unnamed) + rest + "]";
        // Enough for the slots of the list and the strings of a few elements, but not for all.
        constexpr std::uint64_t budget = 400 * sizeof(Named) + 10 * 1000 * sizeof(std::string);
        EXPECT_EQ(outcomeWithin(budget, R"({"tolerantList":)" + elements + "}").failure, "");
        EXPECT_EQ(outcomeWithin(budget, R"({"inside":{"choices":)" + elements + "}}").failure, "");
    }
    EXPECT_EQ(outcomeWithin(noLimit, R"({"lenientList":[)" + repeated(1000, "{}") + ",7]}").memory, 0U);
    EXPECT_EQ(outcomeWithin(noLimit, R"({"free":{"a":1,"\ud800":2}})").memory, 0U);
}

TEST(TheMemoryBudget, DoesNotCountSkippedValues) {
    EXPECT_EQ(outcomeWithin(0, R"({"x":[)" + repeated(1000, "{}") + "],\"text\":\"short\"}").failure, "");
}

TEST(ALenientList, ReturnsItsMemoryIfItFails) {
    const Result<Page, Error> page =
        JSONDecoder().decode<Page>(Data(R"({"lenientList":[)" + repeated(1000, "{}") + ",7]}"));
    ASSERT_TRUE(page);
    EXPECT_TRUE(page->lenientList.empty());
    EXPECT_EQ(page->lenientList.capacity(), 0U);
}

TEST(ADecoder, HasAMemoryBudgetOfOneGibibyteByDefault) {
    EXPECT_EQ(JSONDecoder::defaultMemoryBudget, 1'073'741'824U);
    const Data document("[" + repeated(1000, "{}") + "]");
    EXPECT_TRUE(JSONDecoder().decode<std::vector<Wide>>(document));
    EXPECT_TRUE(JSONDecoder({.memoryBudget = 10'000'000}).decode<std::vector<Wide>>(document));
    const auto refused = JSONDecoder({.memoryBudget = 500'000}).decode<std::vector<Wide>>(document);
    ASSERT_FALSE(refused);
    const DecodingError* const error = refused.error().as<DecodingError>();
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->kind(), DecodingError::Kind::dataCorrupted);
    EXPECT_EQ(error->codingPath(), CodingPath{});
    EXPECT_EQ(error->debugDescription(),
              "The value takes more than the decoder's memory budget of 500000 bytes.");
}

}  // namespace
}  // namespace VanticRestKit
