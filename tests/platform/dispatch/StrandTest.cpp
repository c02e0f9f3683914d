#include <VanticRestKit/platform/dispatch/detail/Strand.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <memory>
#include <vector>

using namespace VanticRestKit;
using test::Event;

TEST(UnhurriedBlock, RunsInItsPlaceWhenAnotherBlockFollows) {
    const auto strand = std::make_shared<detail::Strand>("test");
    const Event done;
    std::vector<int> seen;
    strand->postUnhurried([&seen] { seen.push_back(1); });
    strand->postUnhurried([&seen] { seen.push_back(2); });
    strand->post([&seen] { seen.push_back(3); });
    strand->postUnhurried([&seen] { seen.push_back(4); });
    strand->post([done] { done.signal(); });
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3, 4}));
}

TEST(UnhurriedBlock, DoesNotWaitForGoodWhereOnlyItsOwnKindFollows) {
    const auto strand = std::make_shared<detail::Strand>("test");
    constexpr int count = 100;
    const Event ran;
    for (int i = 0; i < 10 * count; ++i) strand->postUnhurried([ran] { ran.signal(); });
    EXPECT_TRUE(ran.wait(9 * count));
}

TEST(UnhurriedBlock, IsDroppedWithAQueueThatNothingFollowedOn) {
    const auto held = std::make_shared<int>(1);
    auto strand = std::make_shared<detail::Strand>("test");
    strand->postUnhurried([held] {});
    strand.reset();
    EXPECT_EQ(held.use_count(), 1);
}
