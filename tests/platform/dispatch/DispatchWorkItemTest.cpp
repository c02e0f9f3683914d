#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using test::Event;

namespace {

/// A chain of items, each held by the block of the one before it.
std::shared_ptr<DispatchWorkItem> chain(int length) {
    std::shared_ptr<DispatchWorkItem> first;
    for (int i = 0; i < length; ++i) {
        first = std::make_shared<DispatchWorkItem>([next = std::move(first)] {});
    }
    return first;
}

// With one stack frame per link, far more than a stack of 8 MB can hold.
constexpr int longChain = 400'000;

}  // namespace

TEST(DispatchWorkItem, RunsAtMostOnce) {
    int runs = 0;
    DispatchWorkItem item([&] { ++runs; });
    item.perform();
    item.perform();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(item.isCancelled());
}

TEST(DispatchWorkItem, NeverRunsIfCancelledBeforeItsStart) {
    const DispatchQueue queue("test");
    const Event last;
    std::atomic<bool> ran{false};
    const auto item = std::make_shared<DispatchWorkItem>([&] { ran = true; });
    {
        const detail::PoolPause pause;
        queue.async(item);
        queue.async([last] { last.signal(); });
        item->cancel();
    }
    ASSERT_TRUE(last.wait());
    EXPECT_FALSE(ran);
    EXPECT_TRUE(item->isCancelled());
}

TEST(DispatchWorkItem, ContinuesIfCancelledAfterItsStart) {
    const DispatchQueue queue("test");
    const Event started, goOn, ended;
    const auto item = std::make_shared<DispatchWorkItem>([=] {
        started.signal();
        if (goOn.wait()) ended.signal();
    });
    queue.async(item);
    ASSERT_TRUE(started.wait());
    item->cancel();
    EXPECT_TRUE(item->isCancelled());
    goOn.signal();
    EXPECT_TRUE(ended.wait());
}

TEST(DispatchWorkItem, CanBeCancelledByItsOwnBlock) {
    std::shared_ptr<DispatchWorkItem> item;
    const auto held = std::make_shared<int>(1);
    int seen = 0;
    item = std::make_shared<DispatchWorkItem>([&, held] {
        item->cancel();
        seen = *held;
    });
    item->perform();
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(DispatchWorkItem, ReleasesItsBlockAfterRunningEvenIfTheItemIsStillHeld) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> seen = held;
    DispatchWorkItem item([kept = std::move(held)] {});
    item.perform();
    EXPECT_TRUE(seen.expired());
}

TEST(DispatchWorkItem, DestroysItsBlockWhenCancelledWhileStillQueued) {
    const DispatchQueue queue("test");
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> seen = held;
    const auto item = std::make_shared<DispatchWorkItem>([kept = std::move(held)] {});
    const detail::PoolPause pause;
    queue.async(item);
    item->cancel();
    EXPECT_TRUE(seen.expired());
}

TEST(DispatchWorkItem, IsFreedAfterRunningEvenIfItsBlockHoldsIt) {
    std::weak_ptr<DispatchWorkItem> seen;
    {
        struct Owner {
            std::shared_ptr<DispatchWorkItem> item;
        };
        const auto owner = std::make_shared<Owner>();
        owner->item = std::make_shared<DispatchWorkItem>([owner] {});
        seen = owner->item;
        owner->item->perform();
    }
    EXPECT_TRUE(seen.expired());
}

TEST(DispatchWorkItem, WithoutABlockDoesNothing) {
    DispatchWorkItem item(nullptr);
    item.perform();
    item.cancel();
    EXPECT_TRUE(item.isCancelled());
}

TEST(DispatchWorkItem, DestroysALongChainWithoutDeepRecursion) { chain(longChain).reset(); }

TEST(DispatchWorkItem, ReleasesALongChainWithoutDeepRecursionWhenCancelled) {
    chain(longChain)->cancel();
    chain(longChain)->perform();
}

TEST(DispatchWorkItem, RunsAtMostOnceAndReleasesItsBlockIfManyThreadsPerformAndCancel) {
    constexpr std::size_t count = 5000;
    auto held = std::make_shared<int>(1);
    // Not atomic: a block that ran twice at once would be seen by the thread sanitizer.
    std::vector<int> runs(count, 0);
    std::vector<std::shared_ptr<DispatchWorkItem>> items;
    for (std::size_t i = 0; i < count; ++i) {
        items.push_back(std::make_shared<DispatchWorkItem>([&runs, i, held] { ++runs[i]; }));
    }
    const auto performAll = [&items] {
        for (const auto& item : items) item->perform();
    };
    std::thread first(performAll);
    std::thread second(performAll);
    for (auto item = items.rbegin(); item != items.rend(); ++item) (*item)->cancel();
    first.join();
    second.join();
    for (const int each : runs) EXPECT_LE(each, 1);
    EXPECT_EQ(held.use_count(), 1);
    const std::vector<int> before = runs;
    performAll();
    EXPECT_EQ(runs, before);
}
