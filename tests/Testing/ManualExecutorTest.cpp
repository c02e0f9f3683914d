#include <gtest/gtest.h>
#include <VanticRestKit/Testing/ManualExecutor.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace VanticRestKit::Testing {
namespace {

TEST(ManualExecutorTest, RunsNothingByItself) {
    ManualExecutor executor;
    bool hasRun = false;
    executor.queue().async([&] { hasRun = true; });
    EXPECT_FALSE(hasRun);
    EXPECT_EQ(executor.pending(), 1U);
    EXPECT_TRUE(executor.runOne());
    EXPECT_TRUE(hasRun);
    EXPECT_FALSE(executor.runOne());
}

TEST(ManualExecutorTest, RunsBlocksInOrderOnTheCallingThread) {
    ManualExecutor executor;
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int i = 0; i < 3; ++i) {
        executor.queue().async([&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
        });
    }
    EXPECT_EQ(executor.runAll(), 3U);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(threads, std::vector<std::thread::id>(3, std::this_thread::get_id()));
}

TEST(ManualExecutorTest, RunAllAlsoRunsBlocksPostedByBlocks) {
    ManualExecutor executor;
    std::string order;
    executor.queue().async([&] {
        order += "a";
        executor.queue().async([&] { order += "b"; });
    });
    EXPECT_EQ(executor.runAll(), 2U);
    EXPECT_EQ(order, "ab");
}

TEST(ManualExecutorTest, TheQueueIsCurrentInItsBlocks) {
    ManualExecutor executor;
    bool isCurrent = false;
    executor.queue().async([&] { isCurrent = executor.queue().isCurrent(); });
    executor.runAll();
    EXPECT_TRUE(isCurrent);
    EXPECT_FALSE(executor.queue().isCurrent());
}

TEST(ManualExecutorTest, WaitsForBlocksFromOtherThreads) {
    ManualExecutor executor;
    bool hasRun = false;
    std::thread other([&] { executor.queue().async([&] { hasRun = true; }); });
    EXPECT_TRUE(executor.runUntil([&] { return hasRun; }));
    other.join();
}

TEST(ManualExecutorTest, StopsWaitingIfNoBlockArrives) {
    ManualExecutor executor;
    EXPECT_FALSE(executor.runUntil([] { return false; }, std::chrono::milliseconds(1)));
}

TEST(ManualExecutorTest, DestroysPendingBlocksWhenDestroyed) {
    const auto held = std::make_shared<int>();
    std::unique_ptr<DispatchQueue> queue;
    {
        ManualExecutor executor;
        queue = std::make_unique<DispatchQueue>(executor.queue());
        queue->async([held] { ADD_FAILURE() << "ran"; });
    }
    EXPECT_EQ(held.use_count(), 1);
    queue->async([held] { ADD_FAILURE() << "ran"; });
    EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace VanticRestKit::Testing
