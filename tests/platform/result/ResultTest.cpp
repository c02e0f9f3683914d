#include <gtest/gtest.h>
#include <VanticRestKit/platform/result/Result.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace VanticRestKit {
namespace {

using Text = Result<std::string, int>;
using Nothing = Result<void, std::string>;

Text textOrCode(bool succeeds) {
    if (succeeds) return std::string("text");
    return Failure(7);
}

TEST(Result, HoldsAValue) {
    const Text result = textOrCode(true);
    EXPECT_TRUE(result.has_value());
    EXPECT_TRUE(static_cast<bool>(result));
    EXPECT_EQ(result.value(), "text");
    EXPECT_EQ(*result, "text");
    EXPECT_EQ(result->size(), 4u);
}

TEST(Result, HoldsAnError) {
    const Text result = textOrCode(false);
    EXPECT_FALSE(result.has_value());
    EXPECT_FALSE(static_cast<bool>(result));
    EXPECT_EQ(result.error(), 7);
}

TEST(Result, DistinguishesValueAndErrorOfTheSameType) {
    using Same = Result<int, int>;
    EXPECT_TRUE(Same(3).has_value());
    EXPECT_FALSE(Same(Failure(3)).has_value());
    EXPECT_FALSE(Same(3) == Same(Failure(3)));
}

TEST(Result, AFailureConvertsToTheErrorTypeOfTheResult) {
    const Result<int, std::string> result = Failure("late");
    EXPECT_EQ(result.error(), "late");
    const Nothing nothing = Failure("late");
    EXPECT_EQ(nothing.error(), "late");
}

TEST(Result, AFailureOfAnUnrelatedTypeIsRejected) {
    static_assert(!std::is_constructible_v<Result<int, std::string>, Failure<std::pair<int, int>>>);
    static_assert(!std::is_constructible_v<Nothing, Failure<std::pair<int, int>>>);
}

TEST(Result, HoldsAMoveOnlyValue) {
    Result<std::unique_ptr<int>, int> result = std::make_unique<int>(5);
    const std::unique_ptr<int> taken = std::move(result).value();
    EXPECT_EQ(*taken, 5);
    Result<std::unique_ptr<int>, int> other = std::make_unique<int>(6);
    const std::unique_ptr<int> alsoTaken = *std::move(other);
    EXPECT_EQ(*alsoTaken, 6);
}

TEST(Result, HoldsAMoveOnlyError) {
    Result<int, std::unique_ptr<int>> result = Failure(std::make_unique<int>(5));
    const std::unique_ptr<int> taken = std::move(result).error();
    EXPECT_EQ(*taken, 5);
    EXPECT_FALSE(result.has_value());
}

TEST(Result, AMovedFromResultStillKnowsItsSide) {
    Text value = textOrCode(true);
    const Text taken = std::move(value);
    EXPECT_TRUE(value.has_value());
    EXPECT_EQ(*taken, "text");
}

TEST(Result, ItsValueCanBeChanged) {
    Text result = textOrCode(true);
    result.value() += "s";
    *result += "!";
    result->pop_back();
    EXPECT_EQ(*result, "texts");
}

TEST(Result, ReturnsTheFallbackOnlyIfThereIsNoValue) {
    EXPECT_EQ(textOrCode(true).value_or("none"), "text");
    EXPECT_EQ(textOrCode(false).value_or("none"), "none");
    const Text kept = textOrCode(true);
    EXPECT_EQ(kept.value_or("none"), "text");
    const Text failed = textOrCode(false);
    EXPECT_EQ(failed.value_or("none"), "none");
    EXPECT_EQ(*kept, "text");
}

TEST(Result, ComparesByStateAndContent) {
    EXPECT_EQ(Text(std::string("a")), Text(std::string("a")));
    EXPECT_FALSE(Text(std::string("a")) == Text(std::string("b")));
    EXPECT_EQ(Text(Failure(1)), Text(Failure(1)));
    EXPECT_FALSE(Text(Failure(1)) == Text(Failure(2)));
    EXPECT_FALSE(Text(std::string("a")) == Text(Failure(1)));
}

TEST(Result, CanBeComparedOnlyIfItsTypesCan) {
    struct Opaque {};
    static_assert(std::equality_comparable<Text>);
    static_assert(!std::equality_comparable<Result<Opaque, int>>);
    static_assert(!std::equality_comparable<Result<int, Opaque>>);
    static_assert(!std::equality_comparable<Result<void, Opaque>>);
}

TEST(ResultWithoutValue, IsASuccessUnlessItHoldsAnError) {
    EXPECT_TRUE(Nothing().has_value());
    EXPECT_FALSE(Nothing(Failure("late")).has_value());
    EXPECT_EQ(Nothing(), Nothing());
    EXPECT_FALSE(Nothing() == Nothing(Failure("")));
    EXPECT_EQ(Nothing(Failure("late")), Nothing(Failure("late")));
}

TEST(ResultWithoutValue, ReadingTheValueOfASuccessDoesNothing) {
    const Nothing success;
    success.value();
    EXPECT_EQ(success, Nothing());
}

TEST(ResultWithoutValue, ItsErrorCanBeMovedOut) {
    Nothing nothing = Failure("late");
    nothing.error() += "r";
    EXPECT_EQ(std::move(nothing).error(), "later");
}

TEST(ResultDeathTest, ReadingTheAbsentSideEndsTheProcess) {
    const Text value = textOrCode(true);
    const Text error = textOrCode(false);
    EXPECT_DEATH((void)error.value(), "");
    EXPECT_DEATH((void)*error, "");
    EXPECT_DEATH((void)error->size(), "");
    EXPECT_DEATH((void)value.error(), "");
    EXPECT_DEATH((void)Nothing().error(), "");
    EXPECT_DEATH(Nothing(Failure("late")).value(), "");
}

constexpr bool worksWhileCompiling() {
    const Result<int, char> value = 3;
    const Result<int, char> error = Failure('x');
    return value.value() == 3 && error.error() == 'x' && error.value_or(4) == 4 && !(value == error);
}
static_assert(worksWhileCompiling());

}  // namespace
}  // namespace VanticRestKit
