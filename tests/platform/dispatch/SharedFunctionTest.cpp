#include <VanticRestKit/platform/dispatch/SharedFunction.h>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <memory>
#include <type_traits>

using namespace VanticRestKit;

namespace {

int twice(int number) { return 2 * number; }

/// A callable with an implicit constructor from the wrapper that will hold it.
struct Repeated {
    Repeated(SharedFunction<void()> function) : repeated(std::move(function)) {}
    void operator()() const {
        repeated();
        repeated();
    }
    SharedFunction<void()> repeated;
};

}  // namespace

TEST(SharedFunction, HoldsACallableThatConvertsFromIt) {
    int calls = 0;
    const Repeated repeated = SharedFunction<void()>([&calls] { ++calls; });
    const SharedFunction<void()> copied = repeated;
    const SharedFunction<void()> moved = Repeated(copied);
    copied();
    EXPECT_EQ(calls, 2);
    moved();
    EXPECT_EQ(calls, 6);
}

static_assert(!std::is_constructible_v<SharedFunction<void()>, int>,
              "a type that cannot be called is rejected");
static_assert(!std::is_constructible_v<SharedFunction<void()>, int (*)(int)>,
              "a callable with other arguments is rejected");

TEST(SharedFunction, CanBeCopiedWithAMoveOnlyCallable) {
    auto number = std::make_unique<int>(7);
    const SharedFunction<int()> function = [held = std::move(number)] { return *held; };
    const SharedFunction<int()> copy = function;
    EXPECT_EQ(function(), 7);
    EXPECT_EQ(copy(), 7);
}

TEST(SharedFunction, CopiesShareTheStateOfTheCallable) {
    const SharedFunction<int()> function = [count = 0]() mutable { return ++count; };
    const SharedFunction<int()> copy = function;
    EXPECT_EQ(function(), 1);
    EXPECT_EQ(copy(), 2);
}

TEST(SharedFunction, IsEmptyIfConstructedFromNothing) {
    EXPECT_FALSE(SharedFunction<void()>());
    EXPECT_FALSE(SharedFunction<void()>(nullptr));
    EXPECT_FALSE(SharedFunction<void()>(std::function<void()>()));
    EXPECT_FALSE(SharedFunction<int(int)>(static_cast<int (*)(int)>(nullptr)));
    EXPECT_FALSE(SharedFunction<void(int)>(SharedFunction<int(int)>()));
}

TEST(SharedFunction, WrapsPlainFunctionsAndOtherWrappers) {
    EXPECT_EQ(SharedFunction<int(int)>(twice)(4), 8);
    EXPECT_EQ(SharedFunction<long(short)>(std::function<int(int)>(twice))(4), 8);
    EXPECT_EQ(SharedFunction<long(short)>(SharedFunction<int(int)>(twice))(4), 8);
}

TEST(SharedFunction, DestroysTheCallableWithItsLastCopy) {
    const auto held = std::make_shared<int>(1);
    SharedFunction<void()> function = [held] {};
    SharedFunction<void()> copy = function;
    function = nullptr;
    EXPECT_FALSE(function);
    EXPECT_EQ(held.use_count(), 2);
    copy = {};
    EXPECT_EQ(held.use_count(), 1);
}

TEST(SharedFunctionDeathTest, EndsTheProcessIfCalledWhileEmpty) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(SharedFunction<void()>()(), testing::KilledBySignal(SIGABRT), "");
}
