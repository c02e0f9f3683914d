#include <VanticRestKit/platform/dispatch/detail/MainQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

using namespace VanticRestKit;
using test::Event;

namespace {

/// Stands in for the event loop of a user interface.
class Loop {
public:
    void post(Block turn) {
        const std::lock_guard lock(mutex_);
        turns_.push_back(std::move(turn));
        changed_.notify_all();
    }
    void runOne() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !turns_.empty(); });
        Block turn = std::move(turns_.front());
        turns_.pop_front();
        lock.unlock();
        turn();
    }

    std::size_t waiting() {
        const std::lock_guard lock(mutex_);
        return turns_.size();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Block> turns_;
};

}  // namespace

TEST(MainQueueOfTheHost, RunsItsBlocksOnTheHostsLoop) {
    // Querying the queue does not count as using it.
    EXPECT_FALSE(DispatchQueue::main().isCurrent());
    EXPECT_EQ(DispatchQueue::main().label(), "main");

    const auto loop = std::make_shared<Loop>();
    const std::function<void(Block)> executor = [loop](Block turn) { loop->post(std::move(turn)); };
    ASSERT_TRUE(DispatchQueue::setMain(executor));
    EXPECT_FALSE(DispatchQueue::setMain(executor));

    std::thread::id seen;
    bool isCurrent = false;
    std::thread poster([&] {
        DispatchQueue::main().async([&] {
            seen = std::this_thread::get_id();
            isCurrent = DispatchQueue::main().isCurrent();
        });
    });
    loop->runOne();
    poster.join();
    EXPECT_EQ(seen, std::this_thread::get_id());
    EXPECT_TRUE(isCurrent);
    EXPECT_FALSE(DispatchQueue::setMain(executor));

    // The host's loop cannot delay a block, so it gets a deferrable one like any other.
    bool hasRun = false;
    detail::MainQueue::shared()->postDeferrable([&hasRun] { hasRun = true; });
    ASSERT_EQ(loop->waiting(), 1U);
    loop->runOne();
    EXPECT_TRUE(hasRun);
}
