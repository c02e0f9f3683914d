#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/platform/dispatch/DispatchGroup.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <chrono>
#include <csignal>
#include <memory>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using detail::GroupProbe;
using detail::PoolProbe;
using test::Event;

namespace {

constexpr std::chrono::seconds deadline{30};

}  // namespace

TEST(DispatchGroup, DoesNotWaitIfNothingIsRunning) {
    const DispatchGroup group;
    group.wait();
    group.enter();
    group.leave();
    group.wait();
}

TEST(DispatchGroup, WaitsForAllAndSeesTheirWrites) {
    const DispatchGroup group;
    // Not atomic: the wait is what makes the writes visible.
    std::vector<int> written(8, 0);
    for (auto& slot : written) {
        group.enter();
        DispatchQueue("writer").async([group, &slot] {
            slot = 1;
            group.leave();
        });
    }
    group.wait();
    EXPECT_EQ(written, std::vector<int>(8, 1));
}

TEST(DispatchGroup, CopiesReferToTheSameGroup) {
    DispatchGroup group;
    group.enter();
    const DispatchGroup moved = std::move(group);
    const Event waited;
    std::thread waiter([=] {
        moved.wait();
        waited.signal();
    });
    EXPECT_TRUE(GroupProbe::awaitWaiters(group, 1, deadline));
    EXPECT_EQ(waited.count(), 0);
    group.leave();
    EXPECT_TRUE(waited.wait());
    waiter.join();
    EXPECT_EQ(GroupProbe::waiters(group), 0U);
}

TEST(DispatchGroup, ReleasesItsWaitersEvenIfOthersEnterBeforeTheyWake) {
    const DispatchGroup group;
    group.enter();
    const Event waited;
    std::vector<std::thread> waiters;
    for (int i = 0; i < 3; ++i) {
        waiters.emplace_back([=] {
            group.wait();
            waited.signal();
        });
    }
    ASSERT_TRUE(GroupProbe::awaitWaiters(group, 3, deadline));
    group.leave();
    group.enter();
    EXPECT_TRUE(waited.wait(3));
    for (auto& waiter : waiters) waiter.join();
    group.leave();
}

TEST(DispatchGroup, CanBeDestroyedByAWaiterDuringLeave) {
    const auto leaver = DispatchQueue::withOwnThread("leaver");
    for (int i = 0; i < 3000; ++i) {
        auto group = std::make_unique<DispatchGroup>();
        group->enter();
        leaver.async([leaving = group.get()] { leaving->leave(); });
        group->wait();
        group.reset();
    }
}

TEST(DispatchGroup, BlocksStartHoweverManyQueuesWait) {
    const auto waiting = static_cast<int>(4 * PoolProbe::limit());
    const DispatchGroup group;
    group.enter();
    const Event waited;
    for (int i = 0; i < waiting; ++i) {
        DispatchQueue("waiter").async([=] {
            group.wait();
            waited.signal();
        });
    }
    ASSERT_TRUE(GroupProbe::awaitWaiters(group, static_cast<std::size_t>(waiting), deadline));
    EXPECT_GE(PoolProbe::threads(), static_cast<std::size_t>(waiting));
    // Posted after all waiting blocks, which wait for it.
    DispatchQueue("leaver").async([group] { group.leave(); });
    EXPECT_TRUE(waited.wait(waiting));
    // The extra threads, started for the waiting ones, end again.
    EXPECT_TRUE(PoolProbe::awaitThreads(PoolProbe::limit(), deadline));
}

TEST(DispatchGroup, BlocksQueuedBeforeTheWaitsStillStart) {
    const auto waiting = static_cast<int>(3 * PoolProbe::limit());
    const DispatchGroup group;
    group.enter();
    const Event waited;
    {
        const detail::PoolPause pause;
        for (int i = 0; i < waiting; ++i) {
            DispatchQueue("waiter").async([=] {
                group.wait();
                waited.signal();
            });
        }
        DispatchQueue("leaver").async([group] { group.leave(); });
    }
    EXPECT_TRUE(waited.wait(waiting));
    EXPECT_TRUE(PoolProbe::awaitThreads(PoolProbe::limit(), deadline));
}

TEST(DispatchGroup, AWaitHoldsUpTheLaterBlocksOfItsQueue) {
    const DispatchQueue queue("test");
    const DispatchGroup group;
    group.enter();
    std::vector<int> seen;
    const Event done;
    queue.async([&] {
        group.wait();
        seen.push_back(1);
    });
    queue.async([&] {
        seen.push_back(2);
        done.signal();
    });
    ASSERT_TRUE(GroupProbe::awaitWaiters(group, 1, deadline));
    EXPECT_EQ(done.count(), 0);
    group.leave();
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(seen, (std::vector<int>{1, 2}));
}

TEST(DispatchGroup, SupportsManyGroupsWaitedForOnManyQueues) {
    constexpr int rounds = 20;
    constexpr int each = 50;
    for (int round = 0; round < rounds; ++round) {
        const Event ended;
        for (int i = 0; i < each; ++i) {
            DispatchQueue("outer").async([ended] {
                int stored = 0;
                const DispatchGroup group;
                group.enter();
                DispatchQueue("inner").async([group, &stored] {
                    const DispatchGroup nested;
                    nested.enter();
                    DispatchQueue("innermost").async([nested] { nested.leave(); });
                    nested.wait();
                    stored = 1;
                    group.leave();
                });
                group.wait();
                EXPECT_EQ(stored, 1);
                ended.signal();
            });
        }
        ASSERT_TRUE(ended.wait(each));
    }
    EXPECT_TRUE(PoolProbe::awaitThreads(PoolProbe::limit(), deadline));
}

TEST(DispatchGroupDeathTest, EndsTheProcessWhenItIsLeftMoreOftenThanEntered) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(DispatchGroup().leave(), testing::KilledBySignal(SIGABRT), "");
}
