#include <VanticRestKit/platform/publisher/Cancellable.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

using namespace VanticRestKit;

TEST(Cancellable, CancelsOnlyOnce) {
    int cancels = 0;
    {
        const Cancellable cancellable([&] { ++cancels; });
        cancellable.cancel();
        cancellable.cancel();
        EXPECT_EQ(cancels, 1);
    }
    EXPECT_EQ(cancels, 1);
}

TEST(Cancellable, CancelsWhenDestroyed) {
    int cancels = 0;
    {
        const Cancellable cancellable([&] { ++cancels; });
    }
    EXPECT_EQ(cancels, 1);
}

TEST(Cancellable, DoesNothingIfDefaultConstructed) {
    Cancellable().cancel();
    Cancellable(Block()).cancel();
    Cancellable(std::shared_ptr<detail::CancelTarget>()).cancel();
}

TEST(Cancellable, TransfersItsFunctionWhenMoved) {
    int cancels = 0;
    Cancellable first([&] { ++cancels; });
    {
        const Cancellable second = std::move(first);
        first.cancel();
        EXPECT_EQ(cancels, 0);
    }
    EXPECT_EQ(cancels, 1);
}

TEST(Cancellable, CancelsItsOldFunctionWhenAssigned) {
    int first = 0;
    int second = 0;
    Cancellable cancellable([&] { ++first; });
    cancellable = Cancellable([&] { ++second; });
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
}

TEST(Cancellable, ReleasesItsFunctionAfterTheCall) {
    const auto held = std::make_shared<int>(1);
    const Cancellable cancellable([held] {});
    cancellable.cancel();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Cancellable, CanBeDestroyedByItsOwnFunction) {
    auto cancellable = std::make_unique<std::optional<Cancellable>>();
    int seen = 0;
    cancellable->emplace([&, number = std::make_unique<int>(3)] {
        cancellable->reset();
        seen = *number;
    });
    (*cancellable)->cancel();
    EXPECT_EQ(seen, 3);
}

TEST(Cancellable, CancelsOnceIfManyThreadsCancel) {
    for (int round = 0; round < 200; ++round) {
        std::atomic<int> cancels{0};
        const Cancellable cancellable([&] { ++cancels; });
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) threads.emplace_back([&] { cancellable.cancel(); });
        for (auto& thread : threads) thread.join();
        ASSERT_EQ(cancels, 1);
    }
}
