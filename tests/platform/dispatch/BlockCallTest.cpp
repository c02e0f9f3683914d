#include <gtest/gtest.h>
#include <VanticRestKit/platform/dispatch/detail/BlockCall.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <support/Event.h>

#ifdef __cpp_exceptions
#include <stdexcept>
#endif

namespace VanticRestKit {
namespace {

TEST(BlockCall, CallsTheBlock) {
    int calls = 0;
    Block block = [&calls] { ++calls; };
    detail::callBlock(block, "a");
    EXPECT_EQ(calls, 1);
}

#ifdef __cpp_exceptions

void throwOn(const DispatchQueue& queue) {
    const test::Event never;
    queue.async([] { throw std::runtime_error("of the host"); });
    static_cast<void>(never.wait());
}

constexpr const char* report = "VanticRestKit: an exception left a block on queue 'of the test'";

class BlockCallDeathTest : public testing::Test {
protected:
    // The queues have threads, which the default death test style would lose in the fork.
    BlockCallDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(BlockCallDeathTest, AThrowingBlockEndsTheProcessAndNamesItsQueue) {
    EXPECT_DEATH(throwOn(DispatchQueue("of the test")), report);
}

TEST_F(BlockCallDeathTest, AThrowingBlockOnADedicatedThreadNamesItsQueue) {
    EXPECT_DEATH(throwOn(DispatchQueue::withOwnThread("of the test")), report);
}

TEST_F(BlockCallDeathTest, AThrowingBlockDoesNotReachTheHostsExecutor) {
    const auto runsAtOnce = [] {
        try {
            throwOn(DispatchQueue::over("of the test", [](Block block) { block(); }));
        } catch (const std::runtime_error&) {
        }
    };
    EXPECT_DEATH(runsAtOnce(), report);
}

TEST_F(BlockCallDeathTest, TheRuntimesMessageFollows) {
    EXPECT_DEATH(throwOn(DispatchQueue("of the test")), "of the host");
}

#endif

}  // namespace
}  // namespace VanticRestKit
