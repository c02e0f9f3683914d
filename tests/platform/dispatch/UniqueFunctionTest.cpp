#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <functional>
#include <memory>

using namespace VanticRestKit;

namespace {

int twice(int number) { return 2 * number; }

/// Counts the live objects that were not moved from.
struct Tracked {
    explicit Tracked(int& count) : alive(&count) { ++*alive; }
    Tracked(Tracked&& other) noexcept : alive(std::exchange(other.alive, nullptr)) {}
    ~Tracked() {
        if (alive != nullptr) --*alive;
    }
    int* alive;
};

/// Binds a handler like the executors of asio: a callable with an implicit constructor from the bound handler.
template <class Handler>
struct Binder {
    Binder(Handler& bound) : handler(std::move(bound)) {}
    Binder(const Handler& bound) requires std::is_copy_constructible_v<Handler> : handler(bound) {}
    Binder(Handler&& bound) : handler(std::move(bound)) {}
    void operator()() { handler(); }
    Handler handler;
};

/// A copyable callable with an implicit constructor from a block.
struct Repeated {
    Repeated(Block block) : shared(std::make_shared<Block>(std::move(block))) {}
    void operator()() const {
        (*shared)();
        (*shared)();
    }
    std::shared_ptr<Block> shared;
};

/// The requirements of asio on a handler.
static_assert(std::is_move_constructible_v<Block> && std::is_convertible_v<Block, Block>);
static_assert(std::is_constructible_v<Block, Binder<Block>> && !std::is_copy_constructible_v<Block>);

static_assert(!std::is_constructible_v<Block, Binder<Block>&>, "a move-only block is not copied");
static_assert(std::is_constructible_v<Block, Repeated&> && std::is_constructible_v<Block, const Repeated&>);
static_assert(!std::is_constructible_v<Block, int> && !std::is_constructible_v<Block, int (*)(int)>);

}  // namespace

TEST(UniqueFunction, HoldsACallableThatConvertsFromIt) {
    int calls = 0;
    Block block = [&calls] { ++calls; };
    Block bound = Binder<Block>(std::move(block));
    bound();
    EXPECT_EQ(calls, 1);
    const Repeated repeated = Block([&calls] { ++calls; });
    Block copied = repeated;
    copied();
    EXPECT_EQ(calls, 3);
}

TEST(UniqueFunction, HoldsAMoveOnlyCallable) {
    auto number = std::make_unique<int>(7);
    UniqueFunction<int()> function = [held = std::move(number)] { return *held; };
    EXPECT_EQ(function(), 7);
}

TEST(UniqueFunction, IsEmptyIfConstructedFromNothing) {
    EXPECT_FALSE(Block());
    EXPECT_FALSE(Block(nullptr));
    EXPECT_FALSE(Block(std::function<void()>()));
    EXPECT_FALSE(UniqueFunction<int(int)>(static_cast<int (*)(int)>(nullptr)));
    EXPECT_FALSE(UniqueFunction<void(int)>(UniqueFunction<int(int)>()));
}

TEST(UniqueFunction, WrapsPlainFunctionsAndOtherWrappers) {
    EXPECT_EQ(UniqueFunction<int(int)>(twice)(4), 8);
    EXPECT_EQ(UniqueFunction<int(int)>(&twice)(4), 8);
    EXPECT_EQ(UniqueFunction<long(short)>(std::function<int(int)>(twice))(4), 8);
    EXPECT_EQ(UniqueFunction<long(short)>(UniqueFunction<int(int)>(twice))(4), 8);
}

TEST(UniqueFunction, PassesMoveOnlyArgumentsAndDiscardsAnUnusedResult) {
    int seen = 0;
    UniqueFunction<void(std::unique_ptr<int>)> function = [&](std::unique_ptr<int> number) {
        seen = *number;
        return number;
    };
    function(std::make_unique<int>(5));
    EXPECT_EQ(seen, 5);
}

TEST(UniqueFunction, PassesReferencesUnchanged) {
    UniqueFunction<int&(int&)> function = [](int& number) -> int& { return number; };
    int number = 1;
    EXPECT_EQ(&function(number), &number);
}

TEST(UniqueFunction, KeepsItsStateBetweenCalls) {
    UniqueFunction<int()> function = [count = 0]() mutable { return ++count; };
    function();
    UniqueFunction<int()> moved = std::move(function);
    EXPECT_EQ(moved(), 2);
}

TEST(UniqueFunction, DestroysASmallAndALargeCallableOnce) {
    int alive = 0;
    {
        Block small = [tracked = Tracked(alive)] {};
        Block large = [tracked = Tracked(alive), room = std::array<char, 200>()] { EXPECT_EQ(room[0], 0); };
        EXPECT_EQ(alive, 2);
        Block first = std::move(small);
        Block second = std::move(large);
        EXPECT_FALSE(small);
        EXPECT_FALSE(large);
        EXPECT_EQ(alive, 2);
        first = std::move(second);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(UniqueFunction, HoldsACallableOfLargeAlignment) {
    struct alignas(64) Aligned {
        std::uintptr_t operator()() const { return reinterpret_cast<std::uintptr_t>(this) % 64; }
    };
    UniqueFunction<std::uintptr_t()> function = Aligned();
    EXPECT_EQ(function(), 0U);
}

TEST(UniqueFunction, HoldsTheNewCallableDuringTheDestructionOfTheOldOne) {
    Block function;
    bool sawNewOne = false;
    struct Looks {
        explicit Looks(Block& block, bool& seen) : function(&block), result(&seen) {}
        Looks(Looks&& other) noexcept
            : function(std::exchange(other.function, nullptr)), result(other.result) {}
        ~Looks() {
            if (function != nullptr) *result = static_cast<bool>(*function);
        }
        Block* function;
        bool* result;
    };
    function = [looks = Looks(function, sawNewOne)] {};
    function = [] {};
    EXPECT_TRUE(sawNewOne);
}

TEST(UniqueFunction, SurvivesBeingMovedToItself) {
    int calls = 0;
    Block function = [&calls] { ++calls; };
    Block& same = function;
    function = std::move(same);
    ASSERT_TRUE(function);
    function();
    EXPECT_EQ(calls, 1);
}

TEST(UniqueFunctionDeathTest, EndsTheProcessIfCalledWhileEmpty) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(Block()(), testing::KilledBySignal(SIGABRT), "");
}
