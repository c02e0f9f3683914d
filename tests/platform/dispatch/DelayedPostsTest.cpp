#include <gtest/gtest.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <support/Event.h>

#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

namespace VanticRestKit {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

TEST(DelayedPosts, RunOnTheQueueAfterTheirDelay) {
    const DispatchQueue queue("delayed");
    const test::Event ran;
    const auto begun = Clock::now();
    Clock::duration waited{};
    bool isOnQueue = false;
    queue.asyncAfter(30ms, [&, ran] {
        waited = Clock::now() - begun;
        isOnQueue = queue.isCurrent();
        ran.signal();
    });
    ASSERT_TRUE(ran.wait());
    EXPECT_GE(waited, 30ms);
    EXPECT_TRUE(isOnQueue);
}

TEST(DelayedPosts, RunInTheOrderOfTheirDueTimes) {
    const DispatchQueue queue("delayed");
    const test::Event ran;
    std::vector<int> order;
    queue.asyncAfter(60ms, [&order, ran] { order.push_back(2), ran.signal(); });
    queue.asyncAfter(10ms, [&order, ran] { order.push_back(1), ran.signal(); });
    ASSERT_TRUE(ran.wait(2));
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST(DelayedPosts, RunWithoutADelayAfterTheBlocksPostedBefore) {
    const DispatchQueue queue("delayed");
    const test::Event ran;
    std::vector<int> order;
    queue.async([&order] { order.push_back(1); });
    queue.asyncAfter(0s, [&order, ran] { order.push_back(2), ran.signal(); });
    queue.asyncAfter(-1s, [&order, ran] { order.push_back(3), ran.signal(); });
    ASSERT_TRUE(ran.wait(2));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(DelayedPosts, ReleaseTheBlockOfACancelledItemAtOnce) {
    const DispatchQueue queue("delayed");
    const auto held = std::make_shared<int>(1);
    const auto item = std::make_shared<DispatchWorkItem>([held] { FAIL() << "it was cancelled"; });
    queue.asyncAfter(1h, item);
    item->cancel();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(DelayedPosts, CanHaveAnInfiniteDelay) {
    const DispatchQueue queue("delayed");
    const test::Event ran;
    queue.asyncAfter(std::chrono::duration<double>::max(), [] { FAIL() << "an infinite delay has passed"; });
    queue.asyncAfter(5ms, [ran] { ran.signal(); });
    EXPECT_TRUE(ran.wait());
}

TEST(DelayedPosts, IgnoreEmptyBlocksAndNullItems) {
    const DispatchQueue queue("delayed");
    const test::Event ran;
    queue.asyncAfter(1ms, Block());
    queue.asyncAfter(1ms, std::shared_ptr<DispatchWorkItem>());
    queue.asyncAfter(2ms, [ran] { ran.signal(); });
    EXPECT_TRUE(ran.wait());
}

/// Stands in for a host's event loop: keeps blocks until the test runs them.
struct Loop {
    std::mutex mutex;
    std::vector<Block> posted;

    std::size_t runAll() {
        std::vector<Block> blocks;
        {
            const std::lock_guard lock(mutex);
            blocks.swap(posted);
        }
        for (Block& block : blocks) block();
        return blocks.size();
    }
};

TEST(AQueueOnAHostsExecutor, RunsItsBlocksOnTheExecutor) {
    const auto loop = std::make_shared<Loop>();
    const DispatchQueue queue = DispatchQueue::over("loop", [loop](Block block) {
        const std::lock_guard lock(loop->mutex);
        loop->posted.push_back(std::move(block));
    });
    std::vector<int> order;
    queue.async([&] { order.push_back(queue.isCurrent() ? 1 : -1); });
    queue.async([&] { order.push_back(2); });
    EXPECT_TRUE(order.empty());
    EXPECT_EQ(loop->runAll(), 2U);
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
    EXPECT_EQ(queue.label(), "loop");
    EXPECT_FALSE(queue.isCurrent());
}

TEST(AQueueOnAHostsExecutor, IsSeparateFromOtherQueues) {
    const auto first = std::make_shared<Loop>();
    const auto second = std::make_shared<Loop>();
    const auto over = [](const std::shared_ptr<Loop>& loop) {
        return DispatchQueue::over("loop", [loop](Block block) { loop->posted.push_back(std::move(block)); });
    };
    const DispatchQueue a = over(first);
    const DispatchQueue b = over(second);
    EXPECT_FALSE(a == b);
    a.async([] {});
    EXPECT_EQ(first->runAll(), 1U);
    EXPECT_EQ(second->runAll(), 0U);
}

}  // namespace
}  // namespace VanticRestKit
