#include <gtest/gtest.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/Testing/ManualClock.h>
#include <VanticRestKit/Testing/ManualExecutor.h>

#include <memory>
#include <string>

namespace VanticRestKit::Testing {
namespace {

using namespace std::chrono_literals;

TEST(ManualClockTest, DoesNotMoveUntilItIsAdvanced) {
    const Date start(ManualClock::Seconds(100));
    ManualClock clock(start);
    EXPECT_EQ(clock.now(), start);
    clock.advance(1500ms);
    EXPECT_EQ(clock.now(), start + ManualClock::Seconds(1.5));
}

TEST(ManualClockTest, RunsTimersInOrderEachAtItsOwnTime) {
    ManualClock clock(Date(ManualClock::Seconds(0)));
    std::string calls;
    const auto call = [&](const char* name) {
        calls += name + std::to_string(static_cast<int>(clock.now().time_since_epoch().count())) + " ";
    };
    clock.after(3s, [&] { call("c"); });
    clock.after(1s, [&] {
        call("a");
        clock.after(1s, [&] { call("b"); });
    });
    clock.after(9s, [&] { call("never"); });
    EXPECT_EQ(clock.advance(5s), 3U);
    EXPECT_EQ(calls, "a1 b2 c3 ");
    EXPECT_EQ(clock.pending(), 1U);
}

TEST(ManualClockTest, ControlsTheDelaysOfQueues) {
    ManualExecutor executor;
    ManualClock clock;
    bool hasRun = false;
    executor.queue().asyncAfter(2s, [&] { hasRun = true; });
    clock.advance(1s);
    EXPECT_EQ(executor.pending(), 0U);
    clock.advance(1s);
    EXPECT_EQ(executor.runAll(), 1U);
    EXPECT_TRUE(hasRun);
}

TEST(ManualClockTest, RestoresTheSystemClockWhenDestroyed) {
    ManualExecutor executor;
    const auto held = std::make_shared<int>();
    {
        ManualClock clock;
        executor.queue().asyncAfter(2s, [held] {});
    }
    EXPECT_EQ(held.use_count(), 1) << "timers that were not due are dropped";
    bool hasRun = false;
    executor.queue().asyncAfter(1ms, [&] { hasRun = true; });
    EXPECT_TRUE(executor.runUntil([&] { return hasRun; }));
}

}  // namespace
}  // namespace VanticRestKit::Testing
