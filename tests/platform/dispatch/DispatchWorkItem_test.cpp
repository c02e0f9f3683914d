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

/// An item whose block holds an item whose block holds an item.
std::shared_ptr<DispatchWorkItem> chain(int length) {
    std::shared_ptr<DispatchWorkItem> first;
    for (int i = 0; i < length; ++i) {
        first = std::make_shared<DispatchWorkItem>([next = std::move(first)] {});
    }
    return first;
}

// Far more than a stack of 8 MB has room for, if each link took a call.
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

TEST(DispatchWorkItem, NeverRunsWhenItIsCancelledBeforeItsQueueComesToIt) {
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

TEST(DispatchWorkItem, GoesOnWhenItIsCancelledAfterItsStart) {
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

TEST(DispatchWorkItem, DropsItsBlockWhenItHasRunThoughItIsStillHeld) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> seen = held;
    DispatchWorkItem item([kept = std::move(held)] {});
    item.perform();
    EXPECT_TRUE(seen.expired());
}

TEST(DispatchWorkItem, DropsItsBlockWhenItIsCancelledThoughItStillStandsInAQueue) {
    const DispatchQueue queue("test");
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> seen = held;
    const auto item = std::make_shared<DispatchWorkItem>([kept = std::move(held)] {});
    const detail::PoolPause pause;
    queue.async(item);
    item->cancel();
    EXPECT_TRUE(seen.expired());
}

TEST(DispatchWorkItem, IsFreedAfterItHasRunAlsoWhenItsBlockHoldsIt) {
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

TEST(DispatchWorkItem, DestroysALongChainOfItemsWithoutDeepRecursion) { chain(longChain).reset(); }

TEST(DispatchWorkItem, DropsALongChainOfItemsWithoutDeepRecursionWhenItIsCancelled) {
    chain(longChain)->cancel();
    chain(longChain)->perform();
}

TEST(DispatchWorkItem, EitherRunsOrIsCancelledWhenBothHappenAtOnce) {
    const DispatchQueue queue("test");
    constexpr int rounds = 2000;
    const Event done;
    std::atomic<int> runs{0};
    int cancelled = 0;
    auto held = std::make_shared<int>(1);
    for (int i = 0; i < rounds; ++i) {
        const auto item = std::make_shared<DispatchWorkItem>([&runs, held] { ++runs; });
        queue.async(item);
        item->cancel();
        queue.async([done] { done.signal(); });
        ++cancelled;
    }
    ASSERT_TRUE(done.wait(rounds));
    EXPECT_LE(runs, cancelled);
    EXPECT_EQ(held.use_count(), 1);
}
