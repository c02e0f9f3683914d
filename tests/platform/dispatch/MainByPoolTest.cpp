#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <vector>

using namespace VanticRestKit;
using test::Event;

TEST(MainQueueOfTheProcess, IsAnOrdinarySerialQueueAndRejectsAnExecutorAfterItsFirstBlock) {
    const Event done;
    std::vector<int> seen;
    bool isCurrent = false;
    for (int i = 0; i < 100; ++i) DispatchQueue::main().async([&, i] { seen.push_back(i); });
    EXPECT_FALSE(DispatchQueue::setMain([](Block turn) { turn(); }));
    DispatchQueue::main().async([&] {
        isCurrent = DispatchQueue::main().isCurrent();
        done.signal();
    });
    ASSERT_TRUE(done.wait());
    EXPECT_TRUE(isCurrent);
    for (int i = 0; i < 100; ++i) ASSERT_EQ(seen[static_cast<std::size_t>(i)], i);
    EXPECT_EQ(DispatchQueue::main(), DispatchQueue::main());
}
