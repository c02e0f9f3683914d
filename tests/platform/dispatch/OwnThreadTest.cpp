#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using test::Event;

namespace {

/// A thread-local object that signals when its thread ends.
struct ThreadEndSignal {
    explicit ThreadEndSignal(Event end) : ended(std::move(end)) {}
    ThreadEndSignal(const ThreadEndSignal&) = delete;
    ThreadEndSignal& operator=(const ThreadEndSignal&) = delete;
    ~ThreadEndSignal() { ended.signal(); }
    Event ended;
};

void signalWhenThisThreadEnds(const Event& ended) {
    thread_local std::optional<ThreadEndSignal> atTheEnd;
    atTheEnd.emplace(ended);
}

bool hasThreadNamed(const std::string& name) {
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string text;
        std::getline(std::ifstream(thread.path() / "comm"), text);
        if (text == name) return true;
    }
    return false;
}

}  // namespace

TEST(QueueWithOwnThread, RunsAllBlocksInOrderOnOneThreadOutsideThePool) {
    const auto queue = DispatchQueue::withOwnThread("test");
    const Event done;
    std::set<std::thread::id> threads;
    std::vector<int> seen;
    bool inPool = true;
    bool isCurrent = false;
    for (int i = 0; i < 1000; ++i) {
        queue.async([&, i] {
            threads.insert(std::this_thread::get_id());
            seen.push_back(i);
        });
    }
    queue.async([&] {
        inPool = detail::Pool::isPoolThread();
        isCurrent = queue.isCurrent();
        done.signal();
    });
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(threads.size(), 1U);
    EXPECT_FALSE(inPool);
    EXPECT_TRUE(isCurrent);
    EXPECT_FALSE(queue.isCurrent());
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(seen[static_cast<std::size_t>(i)], i);
}

TEST(QueueWithOwnThread, StartsItsThreadWithTheFirstBlockAndNamesItAfterItsLabel) {
    const auto queue = DispatchQueue::withOwnThread("starts-late");
    EXPECT_EQ(queue.label(), "starts-late");
    EXPECT_FALSE(hasThreadNamed("starts-late"));
    const Event ran;
    bool isThere = false;
    queue.async([&] {
        isThere = hasThreadNamed("starts-late");
        ran.signal();
    });
    ASSERT_TRUE(ran.wait());
    EXPECT_TRUE(isThere);
}

TEST(QueueWithOwnThread, EndsItsThreadWhenTheLastHandleIsDestroyed) {
    const Event ran, ended;
    {
        const auto queue = DispatchQueue::withOwnThread("test");
        queue.async([=] {
            signalWhenThisThreadEnds(ended);
            ran.signal();
        });
        ASSERT_TRUE(ran.wait());
        const DispatchQueue copy = queue;
    }
    EXPECT_TRUE(ended.wait());
}

TEST(QueueWithOwnThread, KeepsItsThreadAsLongAsThereIsAHandle) {
    const auto queue = DispatchQueue::withOwnThread("test");
    std::thread::id first, second;
    const Event ran;
    { const DispatchQueue copy = queue; }
    queue.async([&] {
        first = std::this_thread::get_id();
        ran.signal();
    });
    ASSERT_TRUE(ran.wait());
    { const DispatchQueue copy = queue; }
    queue.async([&] {
        second = std::this_thread::get_id();
        ran.signal();
    });
    ASSERT_TRUE(ran.wait(2));
    EXPECT_EQ(first, second);
}

TEST(QueueWithOwnThread, RunsBlocksPostedBeforeItsLastHandleWasDestroyed) {
    const Event started, goOn, ran, ended;
    {
        const auto queue = DispatchQueue::withOwnThread("test");
        queue.async([=] {
            signalWhenThisThreadEnds(ended);
            started.signal();
            EXPECT_TRUE(goOn.wait());
        });
        for (int i = 0; i < 100; ++i) queue.async([ran] { ran.signal(); });
    }
    ASSERT_TRUE(started.wait());
    goOn.signal();
    EXPECT_TRUE(ended.wait());
    EXPECT_EQ(ran.count(), 100);
}

TEST(QueueWithOwnThread, ItsLastHandleCanBeDestroyedInItsOwnBlock) {
    const Event ran, ended;
    auto queue = std::make_unique<DispatchQueue>(DispatchQueue::withOwnThread("test"));
    DispatchQueue* const posting = queue.get();
    const Event goOn;
    posting->async([=, held = std::move(queue)]() mutable {
        EXPECT_TRUE(goOn.wait());
        signalWhenThisThreadEnds(ended);
        held->async([ran] { ran.signal(); });
        held.reset();
    });
    goOn.signal();
    EXPECT_TRUE(ended.wait());
    EXPECT_EQ(ran.count(), 1);
}

TEST(QueueWithOwnThread, TakesNoThreadFromThePoolWhenItBlocks) {
    std::vector<DispatchQueue> queues;
    const Event started, goOn, ended;
    const auto count = static_cast<int>(detail::PoolProbe::limit()) + 2;
    for (int i = 0; i < count; ++i) {
        queues.push_back(DispatchQueue::withOwnThread("test"));
        queues.back().async([=] {
            started.signal();
            EXPECT_TRUE(goOn.wait());
            ended.signal();
        });
    }
    ASSERT_TRUE(started.wait(count));
    const Event ran;
    DispatchQueue("pool").async([ran] { ran.signal(); });
    EXPECT_TRUE(ran.wait());
    goOn.signal();
    EXPECT_TRUE(ended.wait(count));
}

TEST(QueueWithOwnThread, SupportsManyShortLivedQueues) {
    constexpr int count = 300;
    const Event ran;
    for (int i = 0; i < count; ++i) {
        const auto queue = DispatchQueue::withOwnThread("test");
        queue.async([ran] { ran.signal(); });
        queue.async([ran, queue] { ran.signal(); });
    }
    EXPECT_TRUE(ran.wait(2 * count));
}
