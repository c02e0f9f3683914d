#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <Core/ActivityCounter.h>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

namespace VanticRestKit {
namespace {

static_assert(!std::is_default_constructible_v<NetworkActivityCounter>, "hosts cannot make one");

/// Records the values passed to the host's indicator, and whether every call was on the main queue. Read after the main
/// queue has settled.
class NetworkActivityCounterTest : public ::testing::Test {
protected:
    NetworkActivityCounterTest() {
        test::zeroActivityCounter();
        test::settleMainQueue();
        NetworkActivityCounter::setIndicator([this](bool visible) {
            reported.push_back(visible);
            alwaysOnMain = alwaysOnMain && DispatchQueue::main().isCurrent();
        });
    }
    ~NetworkActivityCounterTest() override {
        NetworkActivityCounter::setIndicator(nullptr);
        test::zeroActivityCounter();
        test::settleMainQueue();
    }

    std::vector<bool> reported;
    bool alwaysOnMain = true;
};

TEST_F(NetworkActivityCounterTest, TheIndicatorIsVisibleDuringARequest) {
    NetworkActivityCounter::increase();
    test::settleMainQueue();
    EXPECT_EQ(reported, std::vector<bool>{true});
    NetworkActivityCounter::decrease();
    test::settleMainQueue();
    EXPECT_EQ(reported, (std::vector<bool>{true, false}));
    EXPECT_TRUE(alwaysOnMain);
}

TEST_F(NetworkActivityCounterTest, ANegativeCounterShowsTheIndicator) {
    NetworkActivityCounter::decrease();
    test::settleMainQueue();
    EXPECT_EQ(test::activityCounter(), -1);
    EXPECT_EQ(reported, std::vector<bool>{true});
}

TEST_F(NetworkActivityCounterTest, TheIndicatorIsCalledOnceForEachChange) {
    NetworkActivityCounter::increase();
    NetworkActivityCounter::increase();
    NetworkActivityCounter::decrease();
    test::settleMainQueue();
    EXPECT_EQ(reported.size(), 3U);
    EXPECT_EQ(reported.back(), true);
}

TEST_F(NetworkActivityCounterTest, TheIndicatorGetsTheStateAtTheTimeOfTheCall) {
    // Both changes are made in one block of the main queue, so that the indicator is called after both.
    const test::Event posted;
    DispatchQueue::main().async([posted] {
        NetworkActivityCounter::increase();
        NetworkActivityCounter::decrease();
        posted.signal();
    });
    ASSERT_TRUE(posted.wait());
    test::settleMainQueue();
    EXPECT_EQ(reported, (std::vector<bool>{false, false})) << "the counter is back at zero when it is read";
}

TEST_F(NetworkActivityCounterTest, AnIndicatorIsNotCalledWhenItIsInstalled) {
    NetworkActivityCounter::increase();
    test::settleMainQueue();
    std::vector<bool> late;
    NetworkActivityCounter::setIndicator([&late](bool visible) { late.push_back(visible); });
    test::settleMainQueue();
    EXPECT_TRUE(late.empty());
    NetworkActivityCounter::decrease();
    test::settleMainQueue();
    EXPECT_EQ(late, std::vector<bool>{false});
    NetworkActivityCounter::setIndicator(nullptr);
    test::settleMainQueue();
}

TEST_F(NetworkActivityCounterTest, ChangesWithoutAnIndicatorAreCountedButNotReportedLater) {
    NetworkActivityCounter::setIndicator(nullptr);
    test::settleMainQueue();
    for (int i = 0; i < 100; ++i) NetworkActivityCounter::increase();
    NetworkActivityCounter::decrease();
    std::vector<bool> late;
    NetworkActivityCounter::setIndicator([&late](bool visible) { late.push_back(visible); });
    EXPECT_EQ(test::activityCounter(), 99);
    test::settleMainQueue();
    EXPECT_TRUE(late.empty());
    NetworkActivityCounter::decrease();
    test::settleMainQueue();
    EXPECT_EQ(late, std::vector<bool>{true});
    NetworkActivityCounter::setIndicator(nullptr);
    test::settleMainQueue();
}

TEST_F(NetworkActivityCounterTest, AChangeThatIsReportedAfterTheIndicatorWasRemovedIsNotReported) {
    const test::Event release;
    DispatchQueue::main().async([release] { EXPECT_TRUE(release.wait()); });
    NetworkActivityCounter::increase();
    NetworkActivityCounter::setIndicator(nullptr);
    release.signal();
    EXPECT_EQ(test::activityCounter(), 1);
    test::settleMainQueue();
    EXPECT_TRUE(reported.empty());
}

TEST_F(NetworkActivityCounterTest, ChangingTheCounterDoesNotWaitForTheMainQueue) {
    const test::Event release;
    const test::Event blocked;
    DispatchQueue::main().async([release, blocked] {
        blocked.signal();
        EXPECT_TRUE(release.wait());
    });
    ASSERT_TRUE(blocked.wait());
    NetworkActivityCounter::increase();
    NetworkActivityCounter::decrease();
    EXPECT_TRUE(reported.empty()) << "both calls have returned although the main queue is busy";
    release.signal();
    test::settleMainQueue();
    EXPECT_EQ(reported.size(), 2U);
}

// Each runs in its own process, in which no other test has changed the counter.

TEST(NetworkActivityCounterDeathTest, StartsAtZero) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::_Exit(test::activityCounter() == 0 ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(NetworkActivityCounterDeathTest, EndsTheProcessWhenItOverflows) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto after = [](std::int64_t start, void (*change)()) {
        detail::NetworkActivity::placeCounter(start);
        change();
        std::_Exit(test::activityCounter() == start ? 1 : 0);
    };
    constexpr std::int64_t max = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t min = std::numeric_limits<std::int64_t>::min();
    EXPECT_EXIT(after(max - 1, NetworkActivityCounter::increase), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(after(max, NetworkActivityCounter::increase), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(after(min, NetworkActivityCounter::decrease), testing::KilledBySignal(SIGABRT), "");
}

TEST(NetworkActivityCounterDeathTest, EndsTheProcessWhenItOverflowsWithAnIndicatorInstalled) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            NetworkActivityCounter::setIndicator([](bool) {});
            detail::NetworkActivity::placeCounter(std::numeric_limits<std::int64_t>::max());
            NetworkActivityCounter::increase();
            std::_Exit(test::activityCounter() == 0 ? 1 : 0);
        },
        testing::KilledBySignal(SIGABRT), "");
}

}  // namespace
}  // namespace VanticRestKit
