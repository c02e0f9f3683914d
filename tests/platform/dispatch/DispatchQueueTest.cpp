#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/platform/dispatch/DispatchGroup.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using test::Event;

namespace {

std::ptrdiff_t threadsOfThisProcess() {
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return std::distance(begin(threads), end(threads));
}

}  // namespace

TEST(DispatchQueue, AnAssignedCopyRefersToTheSameQueue) {
    const DispatchQueue original("original");
    DispatchQueue copy("copy");
    EXPECT_NE(copy, original);
    copy = original;
    EXPECT_EQ(copy, original);
    EXPECT_EQ(copy.label(), "original");
}

TEST(DispatchQueue, RunsBlocksInTheOrderOfTheirPosting) {
    const DispatchQueue queue("test");
    const Event done;
    std::vector<int> seen;
    constexpr int count = 5000;
    for (int i = 0; i < count; ++i) queue.async([&seen, i] { seen.push_back(i); });
    queue.async([done] { done.signal(); });
    ASSERT_TRUE(done.wait());
    ASSERT_EQ(seen.size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) ASSERT_EQ(seen[static_cast<std::size_t>(i)], i);
}

TEST(DispatchQueue, RunsOneBlockAtATimeAndKeepsTheOrderOfEachPoster) {
    const DispatchQueue queue("test");
    constexpr std::size_t posters = 4;
    constexpr int each = 3000;
    const Event done;
    std::atomic<int> inside{0};
    std::atomic<bool> overlapped{false};
    // Not atomic: that the blocks see each other's writes is what is tested.
    std::vector<int> last(posters, -1);
    bool inOrder = true;
    std::vector<std::thread> threads;
    for (std::size_t poster = 0; poster < posters; ++poster) {
        threads.emplace_back([&, poster] {
            for (int i = 0; i < each; ++i) {
                queue.async([&, poster, i] {
                    if (++inside != 1) overlapped = true;
                    if (last[poster] != i - 1) inOrder = false;
                    last[poster] = i;
                    --inside;
                });
            }
            queue.async([done] { done.signal(); });
        });
    }
    for (auto& thread : threads) thread.join();
    ASSERT_TRUE(done.wait(posters));
    EXPECT_FALSE(overlapped);
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(last, std::vector<int>(posters, each - 1));
}

TEST(DispatchQueue, RunsABlockPostedByItsOwnBlockAfterThosePostedBefore) {
    const DispatchQueue queue("test");
    const Event done;
    std::vector<int> seen;
    {
        const detail::PoolPause pause;
        queue.async([&, queue] {
            queue.async([&] {
                seen.push_back(3);
                done.signal();
            });
            seen.push_back(1);
        });
        queue.async([&] { seen.push_back(2); });
    }
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3}));
}

TEST(DispatchQueue, DestroysABlockOnTheQueueBeforeTheNextOneStarts) {
    const DispatchQueue queue("test");
    const Event done;
    std::vector<int> seen;
    struct Notes {
        Notes(const DispatchQueue& on, std::vector<int>& list) : queue(&on), seen(&list) {}
        Notes(const Notes&) = delete;
        Notes& operator=(const Notes&) = delete;
        ~Notes() { seen->push_back(queue->isCurrent() ? 1 : -1); }
        const DispatchQueue* queue;
        std::vector<int>* seen;
    };
    queue.async([notes = std::make_unique<Notes>(queue, seen)] {});
    queue.async([&] {
        seen.push_back(2);
        done.signal();
    });
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(seen, (std::vector<int>{1, 2}));
}

TEST(DispatchQueue, RunsPostedBlocksEvenIfNoHandleIsLeft) {
    const Event ran;
    {
        const detail::PoolPause pause;
        const DispatchQueue queue("test");
        for (int i = 0; i < 100; ++i) queue.async([ran] { ran.signal(); });
    }
    EXPECT_TRUE(ran.wait(100));
}

TEST(DispatchQueue, ItsLastHandleCanBeDestroyedInItsOwnBlock) {
    const Event ran;
    auto queue = std::make_unique<DispatchQueue>("test");
    DispatchQueue* const posting = queue.get();
    {
        const detail::PoolPause pause;
        posting->async([ran, held = std::move(queue)]() mutable {
            held.reset();
            ran.signal();
        });
        posting->async([ran] { ran.signal(); });
    }
    EXPECT_TRUE(ran.wait(2));
}

TEST(DispatchQueue, KnowsWhetherItIsCurrent) {
    const DispatchQueue queue("a");
    const DispatchQueue other("b");
    const Event done;
    bool inside = false;
    bool otherInside = true;
    EXPECT_FALSE(queue.isCurrent());
    queue.async([&] {
        inside = queue.isCurrent();
        otherInside = other.isCurrent();
        done.signal();
    });
    ASSERT_TRUE(done.wait());
    EXPECT_TRUE(inside);
    EXPECT_FALSE(otherInside);
    EXPECT_FALSE(queue.isCurrent());
}

TEST(DispatchQueue, CopiesReferToTheSameQueue) {
    DispatchQueue queue("dev.vantic.lumenoKitSDK.Loader");
    const DispatchQueue copy = queue;
    const DispatchQueue moved = std::move(queue);
    EXPECT_EQ(copy, moved);
    EXPECT_EQ(queue, copy) << "a handle that was moved from is still the queue";
    EXPECT_FALSE(copy == DispatchQueue(copy.label()));
    EXPECT_EQ(copy.label(), "dev.vantic.lumenoKitSDK.Loader");
}

TEST(DispatchQueue, IgnoresEmptyBlocksAndNullItems) {
    const DispatchQueue queue("test");
    const Event done;
    queue.async(Block());
    queue.async(std::shared_ptr<DispatchWorkItem>());
    queue.async([done] { done.signal(); });
    EXPECT_TRUE(done.wait());
}

TEST(DispatchQueue, RunsWhileManyOtherQueuesAreNeverEmpty) {
    const Event ended;
    const auto stop = std::make_shared<std::atomic<bool>>(false);
    struct Endless {
        DispatchQueue queue{"endless"};
        std::shared_ptr<std::atomic<bool>> stop;
        Event ended;
        void again() const {
            queue.async([*this] {
                if (stop->load()) return ended.signal();
                again();
            });
        }
    };
    const auto endless = static_cast<int>(2 * detail::PoolProbe::limit());
    for (int i = 0; i < endless; ++i) Endless{.stop = stop, .ended = ended}.again();
    const Event ran;
    DispatchQueue("other").async([ran] { ran.signal(); });
    EXPECT_TRUE(ran.wait());
    stop->store(true);
    EXPECT_TRUE(ended.wait(endless));
}

TEST(DispatchQueue, TenThousandQueuesNeedNoThreadsAndShareOnePool) {
    // Extra threads that other tests needed must have ended.
    ASSERT_TRUE(detail::PoolProbe::awaitThreads(detail::PoolProbe::limit(), std::chrono::seconds(30)));

    constexpr int count = 10'000;
    const Event ran;
    std::vector<DispatchQueue> queues;
    {
        const detail::PoolPause pause;
        const auto before = threadsOfThisProcess();
        for (int i = 0; i < count; ++i) queues.emplace_back("dev.vantic.lumenoKitSDK.Loader");
        // Threads of other tests may end meanwhile.
        EXPECT_LE(threadsOfThisProcess(), before);
        for (const auto& queue : queues) queue.async([ran] { ran.signal(); });
        EXPECT_LE(detail::PoolProbe::threads(), detail::PoolProbe::limit());
    }
    EXPECT_TRUE(ran.wait(count));
    // On a busy machine the pool may have mistaken slow threads for blocked ones and started more.
    EXPECT_TRUE(detail::PoolProbe::awaitThreads(detail::PoolProbe::limit(), std::chrono::seconds(30)));
}

TEST(DispatchQueue, BlocksStartHoweverManyOthersBlock) {
    const auto blocking = static_cast<int>(3 * detail::PoolProbe::limit());
    const Event go;
    const Event ended;
    for (int i = 0; i < blocking; ++i) {
        DispatchQueue("blocks").async([=] {
            EXPECT_TRUE(go.wait());
            ended.signal();
        });
    }
    // Posted after all blocking blocks, which wait for it.
    DispatchQueue("release").async([go] { go.signal(); });
    EXPECT_TRUE(ended.wait(blocking));
    // The extra threads, started for the blocked ones, end again.
    EXPECT_TRUE(detail::PoolProbe::awaitThreads(detail::PoolProbe::limit(), std::chrono::seconds(30)));
}

TEST(DispatchQueue, BlocksStartEvenIfOthersBlockOrWaitForAGroup) {
    const auto each = static_cast<int>(2 * detail::PoolProbe::limit());
    const Event go;
    const Event ended;
    const DispatchGroup group;
    group.enter();
    for (int i = 0; i < each; ++i) {
        DispatchQueue("waits").async([=] {
            group.wait();
            ended.signal();
        });
        DispatchQueue("blocks").async([=] {
            EXPECT_TRUE(go.wait());
            ended.signal();
        });
    }
    DispatchQueue("leaves").async([group] { group.leave(); });
    DispatchQueue("release").async([go] { go.signal(); });
    EXPECT_TRUE(ended.wait(2 * each));
    EXPECT_TRUE(detail::PoolProbe::awaitThreads(detail::PoolProbe::limit(), std::chrono::seconds(30)));
}

TEST(DispatchQueue, HoldsAnyNumberOfBlocks) {
    const DispatchQueue queue("test");
    const Event done;
    int runs = 0;
    {
        const detail::PoolPause pause;
        for (int i = 0; i < 300'000; ++i) queue.async([&runs] { ++runs; });
        queue.async([done] { done.signal(); });
    }
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(runs, 300'000);
}

TEST(PoolPause, HoldsBackBlocksPostedWhileABlockOfTheQueueRuns) {
    const DispatchQueue queue("test");
    const Event started, goOn, ran, otherRan;
    std::atomic<bool> ranEarly{false};
    queue.async([=] {
        started.signal();
        EXPECT_TRUE(goOn.wait());
    });
    ASSERT_TRUE(started.wait());
    std::atomic<bool> paused{true};
    {
        const detail::PoolPause pause;
        queue.async([&] {
            ranEarly = paused.load();
            ran.signal();
        });
        goOn.signal();
        const DispatchQueue other("other");
        other.async([&] {
            if (paused) ranEarly = true;
            otherRan.signal();
        });
        // A queue with its own thread is not paused. Its block gives the pool time to run the paused block by mistake.
        const Event passed;
        const auto own = DispatchQueue::withOwnThread("own");
        for (int i = 0; i < 1000; ++i) own.async([passed] { passed.signal(); });
        ASSERT_TRUE(passed.wait(1000));
        EXPECT_EQ(ran.count() + otherRan.count(), 0);
        paused = false;
    }
    EXPECT_TRUE(ran.wait());
    EXPECT_TRUE(otherRan.wait());
    EXPECT_FALSE(ranEarly);
}

TEST(PoolPause, EndsWithTheLastOfSeveral) {
    const DispatchQueue queue("test");
    const Event ran;
    {
        const detail::PoolPause outer;
        { const detail::PoolPause inner; }
        queue.async([ran] { ran.signal(); });
        // A queue with its own thread is not paused. Its block gives the pool time to run the paused block by mistake.
        const Event passed;
        const auto own = DispatchQueue::withOwnThread("own");
        for (int i = 0; i < 1000; ++i) own.async([passed] { passed.signal(); });
        ASSERT_TRUE(passed.wait(1000));
        EXPECT_TRUE(detail::Pool::shared().isPaused());
        EXPECT_EQ(ran.count(), 0);
    }
    EXPECT_TRUE(ran.wait());
}

TEST(DispatchQueue, SupportsManyQueuesThatPostToEachOther) {
    constexpr std::size_t count = 200;
    constexpr int hops = 200;
    std::vector<DispatchQueue> queues;
    for (std::size_t i = 0; i < count; ++i) queues.emplace_back("ring");
    // Not atomic: each number is touched on its own queue only.
    std::vector<int> visits(count, 0);
    const Event ended;
    struct Walk {
        const std::vector<DispatchQueue>& queues;
        std::vector<int>& visits;
        Event ended;
        void go(std::size_t at, int left) const {
            queues[at].async([*this, at, left] {
                ++visits[at];
                if (left == 0) return ended.signal();
                go((at * 7 + 1) % queues.size(), left - 1);
            });
        }
    };
    for (std::size_t i = 0; i < count; ++i) Walk{queues, visits, ended}.go(i, hops);
    ASSERT_TRUE(ended.wait(count));
    // The event makes each walk's last visit visible, the queues make the earlier ones visible.
    const Event gathered;
    std::atomic<int> total{0};
    for (std::size_t i = 0; i < count; ++i) {
        queues[i].async([&, i] {
            total += visits[i];
            gathered.signal();
        });
    }
    ASSERT_TRUE(gathered.wait(count));
    EXPECT_EQ(total, static_cast<int>(count) * (hops + 1));
}
