#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/platform/dispatch/detail/Strand.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using test::Event;

TEST(DeferrableBlock, RunsInOrderWhenAnotherBlockFollows) {
    const auto strand = std::make_shared<detail::Strand>("test");
    const Event done;
    std::vector<int> seen;
    strand->postDeferrable([&seen] { seen.push_back(1); });
    strand->postDeferrable([&seen] { seen.push_back(2); });
    strand->post([&seen] { seen.push_back(3); });
    strand->postDeferrable([&seen] { seen.push_back(4); });
    strand->post([done] { done.signal(); });
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3, 4}));
}

TEST(DeferrableBlock, RunsEvenIfOnlyDeferrableBlocksFollow) {
    const auto strand = std::make_shared<detail::Strand>("test");
    constexpr int count = 100;
    const Event ran;
    for (int i = 0; i < 10 * count; ++i) strand->postDeferrable([ran] { ran.signal(); });
    EXPECT_TRUE(ran.wait(9 * count));
}

TEST(DeferrableBlock, IsDestroyedWithItsStrandIfNothingFollows) {
    const auto held = std::make_shared<int>(1);
    auto strand = std::make_shared<detail::Strand>("test");
    strand->postDeferrable([held] {});
    strand.reset();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(DeferrableBlock, WaitsAgainAfterEarlierDeferrableBlocksHaveRun) {
    auto strand = std::make_shared<detail::Strand>("test");
    const Event done;
    for (int i = 0; i < 31; ++i) strand->postDeferrable([] {});
    strand->post([] {});
    strand->post([done] { done.signal(); });
    ASSERT_TRUE(done.wait());
    // When the turn is over, only this test holds the strand.
    while (strand.use_count() > 1) std::this_thread::yield();
    const detail::PoolPause pause;
    strand->postDeferrable([] {});
    EXPECT_EQ(strand.use_count(), 1) << "the strand is not queued in the pool";
}

namespace {

/// The number of blocks of a busy strand that run before the only block of another strand, which is queued after it.
/// The pool has one free thread, and the busy strand has a hundred blocks.
int blocksBeforeTheOtherStrand() {
    std::vector<std::shared_ptr<detail::Strand>> blockers;
    const Event started, goOn, done;
    for (std::size_t i = 1; i < detail::PoolProbe::limit(); ++i) {
        blockers.push_back(std::make_shared<detail::Strand>("blocker"));
        blockers.back()->post([=] {
            started.signal();
            EXPECT_TRUE(goOn.wait());
        });
    }
    EXPECT_TRUE(started.wait(static_cast<int>(blockers.size())));
    constexpr int count = 100;
    std::atomic<int> runs = 0;
    std::atomic<int> seen = 0;
    const auto busy = std::make_shared<detail::Strand>("busy");
    const auto other = std::make_shared<detail::Strand>("other");
    {
        const detail::PoolPause pause;
        for (int i = 0; i < count; ++i) busy->post([&runs] { ++runs; });
        other->post([&seen, &runs, done] {
            seen = runs.load();
            done.signal();
        });
        busy->post([done] { done.signal(); });
    }
    EXPECT_TRUE(done.wait(2));
    goOn.signal();
    return seen;
}

}  // namespace

TEST(Strand, YieldsToOtherStrandsAfterSomeBlocks) {
    // Several attempts, since on a busy machine the pool may temporarily have more than one free thread.
    int fewest = 100;
    for (int i = 0; i < 20 && fewest > 32; ++i) fewest = std::min(fewest, blocksBeforeTheOtherStrand());
    EXPECT_LE(fewest, 32);
}
