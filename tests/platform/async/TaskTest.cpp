#include <gtest/gtest.h>
#include <VanticRestKit/platform/async/Task.h>

#include <platform/async/ManualOperation.h>

#include <chrono>
#include <string>
#include <thread>

namespace VanticRestKit {
namespace {

using namespace std::chrono_literals;
using test::codeOf;
using test::Number;

class ATask : public ::testing::Test {
protected:
    void TearDown() override { source->forget(); }

    Task<int> numberOf() const {
        const Number number = co_await operation.value();
        co_return number ? *number : static_cast<int>(codeOf(number));
    }

    Task<int> numberUntil(std::stop_token stop) const {
        const LoadOptions options{.stop = std::move(stop)};
        const Number number = co_await operation.value(options);
        co_return number ? *number : static_cast<int>(codeOf(number));
    }

    const std::shared_ptr<test::ManualOperationSource> source =
        std::make_shared<test::ManualOperationSource>();
    const Operation<Number> operation{source};
};

Task<int> plain(int number) { co_return number; }

Task<std::string> joined() {
    const int a = co_await plain(1);
    co_await []() -> Task<> { co_return; }();
    co_return std::to_string(a + co_await plain(2));
}

TEST_F(ATask, ReturnsItsValueToItsAwaiter) { EXPECT_EQ(blockOn(joined()), "3"); }

TEST_F(ATask, StartsOnlyWhenItIsAwaited) {
    { const Task<int> never = numberOf(); }
    EXPECT_EQ(source->started.count(), 0);
}

TEST_F(ATask, WaitsForAnOperation) {
    std::thread answering([this] { source->answer(7); });
    EXPECT_EQ(blockOn(numberOf()), 7);
    answering.join();
}

TEST_F(ATask, ResumesOnTheQueueOfTheOptions) {
    const DispatchQueue queue("chosen");
    const auto awaiting = [&]() -> Task<bool> {
        static_cast<void>(co_await operation.value({.on = queue, .deadline = 1h}));
        co_return queue.isCurrent();
    };
    std::thread answering([this] { source->answer(7); });
    EXPECT_TRUE(blockOn(awaiting()));
    answering.join();
}

TEST_F(ATask, ReceivesAMissedDeadlineAndAStop) {
    const auto late = [&]() -> Task<Number> { co_return co_await operation.value({.deadline = 1ms}); };
    EXPECT_EQ(codeOf(blockOn(late())), -1001);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(blockOn(numberUntil(stop.get_token())), -999);
}

/// A coroutine that starts at once and is destroyed explicitly.
struct DestroyedExplicitly {
    struct promise_type {
        DestroyedExplicitly get_return_object() {
            return {std::coroutine_handle<promise_type>::from_promise(*this)};
        }
        std::suspend_never initial_suspend() const noexcept { return {}; }
        std::suspend_always final_suspend() const noexcept { return {}; }
        void return_void() const noexcept {}
        void unhandled_exception() const noexcept { std::terminate(); }
    };
    std::coroutine_handle<promise_type> coroutine;
};

TEST_F(ATask, CancelsAndNeverResumesIfDestroyedWhileWaiting) {
    bool wentOn = false;
    const auto waits = [&]() -> DestroyedExplicitly {
        static_cast<void>(co_await operation.value());
        wentOn = true;
    };
    const DestroyedExplicitly waiting = waits();
    ASSERT_TRUE(source->started.wait());
    waiting.coroutine.destroy();
    EXPECT_EQ(source->cancelled.count(), 1);
    source->answer(7);
    EXPECT_FALSE(wentOn);
}

TEST_F(ATask, MayEndAndBeDestroyedByTheThreadThatResumesIt) {
    for (std::size_t round = 0; round < 200; ++round) {
        std::thread answering([this, round] { source->answer(7, round); });
        EXPECT_EQ(blockOn(numberOf()), 7);
        answering.join();
    }
}

TEST_F(ATask, WaitsForAListAndKeepsItsOrder) {
    std::vector<Task<int>> tasks;
    for (int i = 0; i < 3; ++i) tasks.push_back(numberOf());
    std::thread answering([this] {
        ASSERT_TRUE(source->started.wait(3)) << "they run concurrently";
        for (const std::size_t place : {2U, 0U, 1U}) source->answer(static_cast<int>(place), place);
    });
    EXPECT_EQ(blockOn(whenAll(std::move(tasks))), (std::vector<int>{0, 1, 2}));
    answering.join();
    EXPECT_TRUE(blockOn(whenAll(std::vector<Task<int>>())).empty());
}

TEST_F(ATask, WaitsForTasksOfDifferentTypes) {
    const auto nothing = []() -> Task<> { co_return; };
    const auto [number, text, none] = blockOn(whenAll(plain(4), joined(), nothing()));
    EXPECT_EQ(number, 4);
    EXPECT_EQ(text, "3");
    EXPECT_EQ(none, std::monostate());
}

TEST_F(ATask, StopsTheOthersWhenItEndsFirst) {
    std::stop_source stop;
    std::vector<Task<int>> tasks;
    for (int i = 0; i < 3; ++i) tasks.push_back(numberUntil(stop.get_token()));
    std::thread answering([this] {
        ASSERT_TRUE(source->started.wait(3));
        source->answer(7, 1);
    });
    const FirstEnded<int> first = blockOn(whenAny(std::move(tasks), stop));
    answering.join();
    EXPECT_EQ(first.index, 1U);
    EXPECT_EQ(first.value, 7);
    EXPECT_EQ(source->cancelled.count(), 2);
}

#if defined(__cpp_exceptions)
Task<int> throwing() {
    throw std::string("thrown");
    co_return 1;
}

TEST_F(ATask, RethrowsItsExceptionInTheAwaiter) {
    EXPECT_THROW(blockOn(throwing()), std::string);
    EXPECT_THROW(blockOn(whenAll(plain(1), throwing())), std::string);
}
#endif

}  // namespace
}  // namespace VanticRestKit
