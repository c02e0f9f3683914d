#include <VanticRestKit/platform/dispatch/OperationQueue.h>
#include <VanticRestKit/platform/dispatch/Replaceable.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using namespace VanticRestKit;

TEST(Replaceable, ReturnsTheInitialValueThenTheOneStoredLast) {
    detail::Replaceable<std::optional<std::string>> empty;
    EXPECT_FALSE(empty.load());
    detail::Replaceable<std::string> text("a");
    EXPECT_EQ(text.load(), "a");
    text.store("b");
    EXPECT_EQ(text.load(), "b");
}

TEST(Replaceable, ReturnsOnlyCompleteValuesIfSeveralThreadsStoreAndLoad) {
    struct Pair {
        std::string first;
        std::string second;
    };
    detail::Replaceable<Pair> pair;
    std::atomic<bool> torn{false};
    std::vector<std::thread> threads;
    for (int writer = 0; writer < 2; ++writer) {
        threads.emplace_back([&, writer] {
            for (int i = 0; i < 3000; ++i) {
                const std::string text(40, static_cast<char>('a' + 2 * writer + i % 2));
                pair.store({text, text});
            }
        });
        threads.emplace_back([&] {
            for (int i = 0; i < 3000; ++i) {
                const Pair seen = pair.load();
                if (seen.first != seen.second) torn = true;
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_FALSE(torn);
}

TEST(Replaceable, TheDestructorOfTheOldValueMayUseTheReplaceable) {
    struct Guard {
        std::function<void()> atTheEnd;
        ~Guard() { atTheEnd(); }
    };
    detail::Replaceable<std::shared_ptr<Guard>> value;
    bool sawNewValue = false;
    value.store(std::make_shared<Guard>([&] { sawNewValue = value.load() == nullptr; }));
    value.store(nullptr);
    EXPECT_TRUE(sawNewValue);
}

TEST(OperationQueue, HasTheSystemsDefaultSettings) {
    const OperationQueue queue{.name = "dev.vantic.NetworkSesionQueue"};
    EXPECT_EQ(queue.name, "dev.vantic.NetworkSesionQueue");
    EXPECT_EQ(queue.maxConcurrentOperationCount, OperationQueue::defaultMaxConcurrentOperationCount);
    EXPECT_FALSE(queue.isSuspended);
}

TEST(OperationQueue, EqualsAQueueWithTheSameNameAndSettings) {
    const OperationQueue queue{.name = "a", .maxConcurrentOperationCount = 2, .isSuspended = true};
    EXPECT_EQ(queue, (OperationQueue{.name = "a", .maxConcurrentOperationCount = 2, .isSuspended = true}));
    EXPECT_NE(queue, (OperationQueue{.name = "b", .maxConcurrentOperationCount = 2, .isSuspended = true}));
    EXPECT_NE(queue, (OperationQueue{.name = "a", .maxConcurrentOperationCount = 3, .isSuspended = true}));
    EXPECT_NE(queue, (OperationQueue{.name = "a", .maxConcurrentOperationCount = 2}));
}
