#include <VanticRestKit/platform/dispatch/detail/HostQueue.h>
#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using test::Event;

namespace {

using Executor = UniqueFunction<void(Block)>;

std::shared_ptr<detail::HostQueue> hostQueue(Executor executor) {
    return std::make_shared<detail::HostQueue>("main", std::move(executor));
}

void runAtOnce(Block turn) { turn(); }

}  // namespace

TEST(HostQueue, PassesOneTurnPerBlockToTheHost) {
    std::vector<Block> turns;
    const auto queue = hostQueue([&](Block turn) { turns.push_back(std::move(turn)); });
    std::vector<int> seen;
    for (int i = 0; i < 3; ++i) queue->post([&, i] { seen.push_back(i); });
    ASSERT_EQ(turns.size(), 3U);
    turns[0]();
    EXPECT_EQ(seen, (std::vector<int>{0}));
    turns[1]();
    turns[2]();
    EXPECT_EQ(seen, (std::vector<int>{0, 1, 2}));
}

TEST(HostQueue, KeepsItsOrderIfTheHostReordersTheTurns) {
    std::vector<Block> turns;
    const auto queue = hostQueue([&](Block turn) { turns.push_back(std::move(turn)); });
    std::vector<int> seen;
    for (int i = 0; i < 3; ++i) queue->post([&, i] { seen.push_back(i); });
    for (const std::size_t i : {2U, 0U, 1U}) turns[i]();
    EXPECT_EQ(seen, (std::vector<int>{0, 1, 2}));
}

TEST(HostQueue, StaysSerialIfTheHostRunsTurnsImmediately) {
    const auto queue = hostQueue(runAtOnce);
    std::vector<int> seen;
    queue->post([&] {
        queue->post([&] { seen.push_back(2); });
        seen.push_back(1);
    });
    EXPECT_EQ(seen, (std::vector<int>{1, 2}));
}

TEST(HostQueue, RunsALongChainWithoutDeepRecursionIfTheHostRunsTurnsImmediately) {
    const auto queue = hostQueue(runAtOnce);
    int left = 200'000;
    struct Again {
        detail::HostQueue& queue;
        int& left;
        void operator()() const {
            if (--left > 0) queue.post(*this);
        }
    };
    queue->post(Again{*queue, left});
    EXPECT_EQ(left, 0);
}

TEST(HostQueue, StaysSerialIfTheHostUsesManyThreads) {
    constexpr int count = 300;
    std::mutex mutex;
    std::vector<std::thread> threads;
    const auto queue = hostQueue([&](Block turn) {
        const std::lock_guard lock(mutex);
        threads.emplace_back(std::move(turn));
    });
    const Event done;
    std::atomic<int> inside{0};
    std::atomic<bool> overlapped{false};
    // Not atomic: the blocks are to see each other's writes.
    std::vector<int> seen;
    for (int i = 0; i < count; ++i) {
        queue->post([&, i] {
            if (++inside != 1) overlapped = true;
            seen.push_back(i);
            --inside;
            done.signal();
        });
    }
    ASSERT_TRUE(done.wait(count));
    for (auto& thread : threads) thread.join();
    EXPECT_FALSE(overlapped);
    for (int i = 0; i < count; ++i) ASSERT_EQ(seen[static_cast<std::size_t>(i)], i);
}

TEST(HostQueue, IsCurrentOnlyInItsBlocks) {
    const auto queue = hostQueue(runAtOnce);
    bool inside = false;
    queue->post([&] { inside = queue->isCurrent(); });
    EXPECT_TRUE(inside);
    EXPECT_FALSE(queue->isCurrent());
}

TEST(HostQueue, DiscardsABlockForEachTurnThatTheHostDrops) {
    std::vector<Block> turns;
    const auto queue = hostQueue([&](Block turn) { turns.push_back(std::move(turn)); });
    const auto held = std::make_shared<int>(1);
    bool ran = false;
    queue->post([held] {});
    turns.clear();
    EXPECT_EQ(held.use_count(), 1);
    queue->post([&] { ran = true; });
    turns[0]();
    EXPECT_TRUE(ran);
}

TEST(HostQueue, RunsATurnOnlyOnce) {
    std::vector<Block> turns;
    const auto queue = hostQueue([&](Block turn) { turns.push_back(std::move(turn)); });
    int runs = 0;
    queue->post([&] { ++runs; });
    turns[0]();
    turns[0]();
    EXPECT_EQ(runs, 1);
}

TEST(MainQueue, AcceptsAnExecutorOnceAndOnlyBeforeItsFirstBlock) {
    detail::MainQueue queue("main");
    EXPECT_FALSE(queue.setExecutor(Executor()));
    EXPECT_TRUE(queue.setExecutor(runAtOnce));
    EXPECT_FALSE(queue.setExecutor(runAtOnce));
    bool inside = false;
    queue.post([&] { inside = queue.isCurrent(); });
    EXPECT_TRUE(inside);
}

TEST(MainQueue, RejectsAnExecutorAfterItsFirstBlock) {
    const auto queue = std::make_shared<detail::MainQueue>("main");
    const Event ran;
    bool inside = false;
    EXPECT_FALSE(queue->isCurrent());
    queue->post([&] {
        inside = queue->isCurrent();
        ran.signal();
    });
    EXPECT_FALSE(queue->setExecutor(runAtOnce));
    ASSERT_TRUE(ran.wait());
    EXPECT_TRUE(inside);
}
