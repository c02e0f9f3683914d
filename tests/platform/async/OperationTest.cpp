#include <gtest/gtest.h>

#include <platform/async/ManualOperation.h>

#include <chrono>
#include <thread>

namespace VanticRestKit {
namespace {

using namespace std::chrono_literals;
using test::codeOf;
using test::Number;

constexpr std::int64_t cancelledCode = -999;
constexpr std::int64_t timedOutCode = -1001;

/// One operation, and the outcomes that it delivered.
class AnOperation : public ::testing::Test {
protected:
    void TearDown() override { source->forget(); }

    UniqueFunction<void(Number)> keep() {
        return [this, event = delivered](Number outcome) {
            outcomes.push_back(std::move(outcome));
            event.signal();
        };
    }

    /// Counts the outcome. May be called on any thread.
    UniqueFunction<void(Number)> keepOnce() const {
        return [event = delivered](const Number&) { event.signal(); };
    }

    /// Expects exactly `count` outcomes after the default queue has run everything posted so far.
    void expectDelivered(int count) const {
        const test::Event passed;
        source->queue.async([passed] { passed.signal(); });
        ASSERT_TRUE(passed.wait());
        EXPECT_EQ(delivered.count(), count);
    }

    const std::shared_ptr<test::ManualOperationSource> source =
        std::make_shared<test::ManualOperationSource>();
    const Operation<Number> operation{source};
    const test::Event delivered;
    std::vector<Number> outcomes;
};

TEST_F(AnOperation, DeliversTheOutcomeOnTheThreadThatSuppliesIt) {
    const Cancellable handle = operation.start({}, keep());
    source->answer(7);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(*outcomes.front(), 7);
    handle.cancel();
    EXPECT_EQ(source->cancelled.count(), 0) << "work that has ended is not cancelled";
    EXPECT_EQ(outcomes.size(), 1U);
}

TEST_F(AnOperation, DeliversOnTheQueueOfItsOptions) {
    const DispatchQueue queue("chosen");
    bool isOnQueue = false;
    const Cancellable handle = operation.start({.on = queue}, [&, event = delivered](Number) {
        isOnQueue = queue.isCurrent();
        event.signal();
    });
    source->answer(1);
    ASSERT_TRUE(delivered.wait());
    EXPECT_TRUE(isOnQueue);
}

TEST_F(AnOperation, DeliversACancelOnceOnItsDefaultQueueAndCancelsItsWork) {
    bool isOnQueue = false;
    const Cancellable handle = operation.start({}, [&, event = delivered](Number outcome) {
        isOnQueue = source->queue.isCurrent();
        outcomes.push_back(std::move(outcome));
        event.signal();
    });
    handle.cancel();
    handle.cancel();
    ASSERT_TRUE(delivered.wait());
    EXPECT_EQ(codeOf(outcomes.front()), cancelledCode);
    EXPECT_TRUE(isOnQueue);
    EXPECT_EQ(source->cancelled.count(), 1);
    source->answer(7);
    EXPECT_EQ(delivered.count(), 1);
}

TEST_F(AnOperation, DeliversNothingAndReleasesItsCompletionWhenItsHandleIsDestroyed) {
    const auto held = std::make_shared<int>(0);
    {
        const Cancellable handle = operation.start({}, [held](Number) { FAIL() << "it was dropped"; });
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(source->cancelled.count(), 1);
    source->answer(7);
}

TEST_F(AnOperation, DeliversNoPendingOutcomeAfterItsHandleIsDestroyedOnItsQueue) {
    const DispatchQueue queue("chosen");
    const test::Event passed;
    queue.async([&, passed] {
        Cancellable handle = operation.start({.on = queue}, [](Number) { FAIL() << "it was dropped"; });
        source->answer(7);
        handle = Cancellable();
        queue.async([passed] { passed.signal(); });
    });
    EXPECT_TRUE(passed.wait());
}

TEST_F(AnOperation, ContinuesWhenItsHandleIsDetached) {
    operation.start({}, keep()).detach();
    source->answer(7);
    EXPECT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(source->cancelled.count(), 0);
}

TEST_F(AnOperation, EndsWithATimeoutAtItsDeadline) {
    const Cancellable handle = operation.start({.deadline = 5ms}, keep());
    ASSERT_TRUE(delivered.wait());
    EXPECT_EQ(codeOf(outcomes.front()), timedOutCode);
    // On a busy machine the deadline can pass before the work is started, which it then never is.
    EXPECT_EQ(source->cancelled.count(), source->started.count());
}

TEST_F(AnOperation, DoesNotStartWithADeadlineOfZeroOrNaN) {
    for (const double seconds : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        operation.start({.deadline = std::chrono::duration<double>(seconds)}, keep()).detach();
    }
    ASSERT_TRUE(delivered.wait(3));
    for (const Number& outcome : outcomes) EXPECT_EQ(codeOf(outcome), timedOutCode);
    EXPECT_EQ(source->started.count(), 0);
}

TEST_F(AnOperation, IsCancelledByItsStopToken) {
    std::stop_source stop;
    const Cancellable handle = operation.start({.stop = stop.get_token()}, keep());
    ASSERT_TRUE(source->started.wait());
    stop.request_stop();
    ASSERT_TRUE(delivered.wait());
    EXPECT_EQ(codeOf(outcomes.front()), cancelledCode);
    EXPECT_EQ(source->cancelled.count(), 1);
}

TEST_F(AnOperation, DoesNotStartIfStopWasRequestedBefore) {
    std::stop_source stop;
    stop.request_stop();
    const Cancellable handle = operation.start({.stop = stop.get_token()}, keep());
    ASSERT_TRUE(delivered.wait());
    EXPECT_EQ(codeOf(outcomes.front()), cancelledCode);
    EXPECT_EQ(source->started.count(), 0);
}

TEST_F(AnOperation, EndsOnceIfItsAnswerACancelAndAStopRace) {
    constexpr std::size_t rounds = 300;
    for (std::size_t round = 0; round < rounds; ++round) {
        std::stop_source stop;
        const Cancellable handle = operation.start({.stop = stop.get_token()}, keepOnce());
        std::thread answering([&] { source->answer(1, round); });
        std::thread stopping([&] { stop.request_stop(); });
        handle.cancel();
        answering.join();
        stopping.join();
        ASSERT_TRUE(delivered.wait(static_cast<int>(round) + 1));
    }
    expectDelivered(static_cast<int>(rounds));
}

TEST_F(AnOperation, EndsOnceWhenACancelRacesItsDeadline) {
    constexpr int rounds = 300;
    for (int round = 0; round < rounds; ++round) {
        const Cancellable handle =
            operation.start({.deadline = std::chrono::microseconds(10 * round)}, keepOnce());
        std::thread cancelling([&] { handle.cancel(); });
        cancelling.join();
        ASSERT_TRUE(delivered.wait(round + 1));
    }
    expectDelivered(rounds);
}

TEST_F(AnOperation, ItsHandleMayBeDestroyedDuringDelivery) {
    for (std::size_t round = 0; round < 300; ++round) {
        auto handle = std::make_unique<Cancellable>(operation.start({}, [](Number) {}));
        std::thread answering([&] { source->answer(1, round); });
        handle.reset();
        answering.join();
    }
}

TEST_F(AnOperation, ReturnsAFutureThatCanBeWaitedFor) {
    auto future = operation.future();
    EXPECT_FALSE(future.isReady());
    EXPECT_FALSE(future.waitFor(1ms));
    source->answer(7);
    EXPECT_TRUE(future.isReady());
    EXPECT_TRUE(future.waitFor(std::chrono::duration<double>::max()));
    EXPECT_EQ(*future.get(), 7);
}

TEST_F(AnOperation, ContinuesWhenItsFutureIsDestroyed) {
    { auto future = operation.future(); }
    EXPECT_EQ(source->cancelled.count(), 0);
    source->answer(7);
}

TEST_F(AnOperation, EndsAsCancelledWhenItsFutureIsStopped) {
    std::stop_source stop;
    auto future = operation.future({.stop = stop.get_token()});
    stop.request_stop();
    EXPECT_EQ(codeOf(future.get()), cancelledCode);
}

TEST_F(AnOperation, PassesTheOutcomeOfAFutureToACompletionSetBeforeOrAfterIt) {
    operation.future().then(keep());
    source->answer(1, 0);
    auto future = operation.future();
    source->answer(2, 1);
    std::move(future).then(keep());
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(*outcomes[0], 1);
    EXPECT_EQ(*outcomes[1], 2);
}

TEST_F(AnOperation, CanBlockTheCallingThread) {
    std::thread answering([&] { source->answer(7); });
    EXPECT_EQ(*operation.wait(), 7);
    answering.join();
    EXPECT_EQ(codeOf(operation.wait({.deadline = 1ms})), timedOutCode);
}

TEST_F(AnOperation, FailsAtOnceIfWaitedForOnItsDeliveryQueue) {
    source->queue.async([&, event = delivered] {
        auto future = operation.future();
        EXPECT_FALSE(future.waitFor(1h));
        outcomes.push_back(future.get());
        outcomes.push_back(operation.wait());
        event.signal();
    });
    ASSERT_TRUE(delivered.wait());
    for (const Number& outcome : outcomes) {
        ASSERT_FALSE(outcome);
        EXPECT_EQ(outcome.error().domain(), "VanticRestKit.Wait");
        EXPECT_EQ(outcome.error().localizedDescription(),
                  "This wait was begun on the queue that has to deliver its outcome, and would never end.");
    }
}

TEST_F(AnOperation, AFutureThatIsReadyCanBeReadOnAnyQueue) {
    auto future = std::make_shared<LoadFuture<Number>>(operation.future());
    source->answer(7);
    source->queue.async([&, future, event = delivered] {
        outcomes.push_back(future->get());
        event.signal();
    });
    ASSERT_TRUE(delivered.wait());
    EXPECT_EQ(*outcomes.front(), 7);
}

TEST_F(AnOperation, StartsAgainForEachSubscriptionOfItsPublisher) {
    std::vector<int> values;
    int ends = 0;
    const auto subscribe = [&] {
        return operation.publisher().sink([&](int value) { values.push_back(value); },
                                          [&](const Result<void, Error>& end) { ends += end ? 1 : 100; });
    };
    const Cancellable first = subscribe();
    const Cancellable second = subscribe();
    source->answer(1, 0);
    source->answer(Failure(Error(NSError("d", 5))), 1);
    EXPECT_EQ(values, std::vector<int>{1});
    EXPECT_EQ(ends, 101);
    { const Cancellable dropped = subscribe(); }
    EXPECT_EQ(source->cancelled.count(), 1);
}

}  // namespace
}  // namespace VanticRestKit
