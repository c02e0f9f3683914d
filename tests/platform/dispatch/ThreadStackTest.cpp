#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/SmallStack.h>

#include <pthread.h>
#include <cstddef>
#include <limits>
#include <utility>

using namespace VanticRestKit;
using test::Event;
using test::ownStackSize;

namespace {

constexpr std::size_t kilobyte = 1024;

std::size_t defaultStackSize() {
    pthread_attr_t attributes;
    std::size_t size = 0;
    pthread_attr_init(&attributes);
    pthread_attr_getstacksize(&attributes, &size);
    pthread_attr_destroy(&attributes);
    return size;
}

std::size_t stackSizeOfNewThread() {
    const Event done;
    std::size_t size = 0;
    EXPECT_TRUE(detail::startThread("test", [&size, done] {
        size = ownStackSize();
        done.signal();
    }));
    EXPECT_TRUE(done.wait());
    return size;
}

template <class Post>
std::size_t stackSizeIn(Post post) {
    const Event done;
    std::size_t size = 0;
    post([&size, done] {
        size = ownStackSize();
        done.signal();
    });
    EXPECT_TRUE(done.wait());
    return size;
}

/// Whether a stack has the requested size. It may be larger: the C library rounds up, sanitizers add memory, and glibc
/// reuses the stack of an ended thread if that is at most four times as large.
testing::AssertionResult isAbout(std::size_t size, std::size_t requested) {
    if (size + 16 * kilobyte >= requested && size <= 4 * requested + 256 * kilobyte)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << size << " bytes, but " << requested << " were requested";
}

}  // namespace

TEST(ThreadStack, HasTheSizeThatWasSetOnTheThreadsOfAllQueues) {
    constexpr std::size_t size = 1024 * kilobyte;
    DispatchQueue::setThreadStackSize(size);
    const DispatchQueue pool("pool");
    const DispatchQueue own = DispatchQueue::withOwnThread("own");
    EXPECT_TRUE(isAbout(stackSizeIn([&](Block block) { pool.async(std::move(block)); }), size));
    EXPECT_TRUE(isAbout(stackSizeIn([&](Block block) { own.async(std::move(block)); }), size));
    DispatchQueue::setThreadStackSize(0);
}

TEST(ThreadStack, IsNeverSmallerThanTheMinimum) {
    DispatchQueue::setThreadStackSize(1);
    EXPECT_TRUE(isAbout(stackSizeOfNewThread(), DispatchQueue::minThreadStackSize));
    DispatchQueue::setThreadStackSize(0);
}

TEST(ThreadStack, HasTheDefaultSizeOfTheCLibraryIfNoneIsSet) {
    DispatchQueue::setThreadStackSize(0);
    EXPECT_TRUE(isAbout(stackSizeOfNewThread(), defaultStackSize()));
}

TEST(ThreadStack, KeepsItsSizeIfAnotherOneIsSetLater) {
    DispatchQueue::setThreadStackSize(1024 * kilobyte);
    const DispatchQueue own = DispatchQueue::withOwnThread("own");
    const auto onQueue = [&](Block block) { own.async(std::move(block)); };
    const std::size_t size = stackSizeIn(onQueue);
    DispatchQueue::setThreadStackSize(16 * 1024 * kilobyte);
    EXPECT_EQ(stackSizeIn(onQueue), size);
    DispatchQueue::setThreadStackSize(0);
}

TEST(ThreadStack, CannotBeLargerThanTheAddressSpace) {
    DispatchQueue::setThreadStackSize(std::numeric_limits<std::size_t>::max() / 4 * 3);
    EXPECT_FALSE(detail::startThread("test", [] {}));
    const DispatchQueue own = DispatchQueue::withOwnThread("own");
    bool hasRun = false;
    own.async([&hasRun] { hasRun = true; });
    EXPECT_TRUE(hasRun) << "a block for which there is no thread runs inside async";
    DispatchQueue::setThreadStackSize(0);
}
