#include "Support.h"

#include <gtest/gtest.h>
#include <support/Event.h>

#include <atomic>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using test::error;
using test::Event;

namespace {

using IntSource = test::ManualSource<int>;
using IntRecorder = test::Recorder<int>;

}  // namespace

TEST(Cancellation, ReachesTheSourceWhenTheHandleIsDestroyed) {
    const auto source = std::make_shared<IntSource>();
    const auto recorder = std::make_shared<IntRecorder>();
    int calls = 0;
    {
        const Cancellable subscription = IntRecorder::of(recorder, IntSource::publisher(source)
                                                                       .map([&](int n) {
                                                                           ++calls;
                                                                           return n;
                                                                       })
                                                                       .mapError([](Error e) { return e; }));
        source->subscribers[0].receive(1);
        EXPECT_EQ(source->cancels, 0);
    }
    EXPECT_EQ(source->cancels, 1);
    EXPECT_TRUE(source->subscribers[0].isEnded());
    source->subscribers[0].receive(2);
    source->subscribers[0].complete();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(recorder->values, std::vector<int>{1});
    EXPECT_EQ(recorder->completions(), 0);
}

TEST(Cancellation, DoesNotAffectOtherSubscriptionsOfThePublisher) {
    const auto source = std::make_shared<IntSource>();
    const auto publisher = IntSource::publisher(source);
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable kept = IntRecorder::of(recorder, publisher);
    {
        const Cancellable dropped = publisher.sink([](int) {});
    }
    source->subscribers[0].receive(1);
    EXPECT_EQ(recorder->values, std::vector<int>{1});
    EXPECT_EQ(source->cancels, 1);
}

TEST(Cancellation, DoesNotReachASourceThatHasEndedByItself) {
    const auto source = std::make_shared<IntSource>();
    const auto held = std::make_shared<int>(1);
    std::optional<Subscriber<int, Error>> subscriber;
    {
        const Cancellable subscription = AnyPublisher<int>::create([&](Subscriber<int, Error> given) {
                                             subscriber = std::move(given);
                                             return Cancellable([source, held] { ++source->cancels; });
                                         }).sink([](int) {});
        EXPECT_EQ(held.use_count(), 2);
        subscriber->complete();
        EXPECT_EQ(held.use_count(), 1) << "the cancel function is released anyway";
    }
    EXPECT_EQ(source->cancels, 0);
}

TEST(Cancellation, ReachesASourceThatSendsBeforeItReturnsItsHandle) {
    int cancels = 0;
    const auto publisher = AnyPublisher<int>::create([&](const Subscriber<int, Error>& subscriber) {
                               subscriber.receive(1);
                               return Cancellable([&] { ++cancels; });
                           }).tryMap([](int) -> Result<int, Error> { return Failure(error(1)); });
    const Cancellable subscription = publisher.sink([](int) {});
    EXPECT_EQ(cancels, 1);
}

TEST(Cancellation, ReachesTheSourceOfAnInnerPublisher) {
    const auto source = std::make_shared<IntSource>();
    const auto inner = IntSource::publisher(source).tryMap([](int n) -> Result<int, Error> {
        if (n < 0) return Failure(error(n));
        return n;
    });
    const auto outer = AnyPublisher<int>::create(
        [inner](Subscriber<int, Error> subscriber) { return inner.subscribe(std::move(subscriber)); });
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable failing = IntRecorder::of(recorder, outer);
    source->subscribers[0].receive(-1);
    EXPECT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(source->cancels, 1);
    { const Cancellable dropped = IntRecorder::of(recorder, outer); }
    EXPECT_EQ(source->cancels, 2);
    const Cancellable ending = IntRecorder::of(recorder, outer);
    source->subscribers[2].complete();
    EXPECT_EQ(recorder->normalEnds, 1);
    EXPECT_EQ(source->cancels, 2);
}

TEST(Cancellation, OnTheDeliveringThreadTakesEffectImmediately) {
    const auto source = std::make_shared<IntSource>();
    std::optional<Cancellable> subscription;
    std::vector<int> seen;
    int completions = 0;
    subscription = IntSource::publisher(source).sink(
        [&](int n) {
            seen.push_back(n);
            subscription->cancel();
        },
        [&](const Result<void, Error>&) { ++completions; });
    const auto subscriber = source->subscribers[0];
    subscriber.receive(1);
    subscriber.receive(2);
    subscriber.complete();
    EXPECT_EQ(seen, std::vector<int>{1});
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(source->cancels, 1);
}

TEST(Cancellation, InsideAStepKeepsTheValueFromDownstreamSteps) {
    const auto source = std::make_shared<IntSource>();
    std::optional<Cancellable> subscription;
    int below = 0;
    subscription = IntSource::publisher(source)
                       .map([&](int n) {
                           subscription.reset();
                           return n;
                       })
                       .map([&](int n) {
                           ++below;
                           return n;
                       })
                       .sink([&](int) { ++below; });
    source->subscribers[0].receive(1);
    EXPECT_EQ(below, 0);
    EXPECT_EQ(source->cancels, 1);
}

TEST(Cancellation, DuringAReplacementElementSuppressesTheCompletion) {
    const auto source = std::make_shared<IntSource>();
    std::optional<Cancellable> subscription;
    int ends = 0;
    subscription = IntSource::publisher(source).replaceError(0).sink(
        [&](int) { subscription.reset(); }, [&](const Result<void, Never>&) { ++ends; });
    source->subscribers[0].complete(Failure(error(1)));
    EXPECT_EQ(ends, 0);
}

TEST(Cancellation, FromAnotherThreadAllowsAtMostTheDeliveryInProgress) {
    const Event delivering, goOn, sent;
    std::atomic<int> cancels{0};
    std::thread sender;
    const auto publisher = AnyPublisher<int>::create([&](const Subscriber<int, Error>& subscriber) {
        sender = std::thread([=] {
            for (int n = 0; n < 100; ++n) subscriber.receive(n);
            subscriber.complete();
            sent.signal();
        });
        return Cancellable([&] { ++cancels; });
    });
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> function = held;
    std::atomic<int> delivered{0};
    std::atomic<bool> functionWasThere{false};
    std::atomic<int> completions{0};
    const Cancellable subscription = publisher.sink(
        [&, kept = std::move(held)](int) {
            ++delivered;
            delivering.signal();
            EXPECT_TRUE(goOn.wait());
            functionWasThere = *kept == 1;
        },
        [&](const Result<void, Error>&) { ++completions; });
    ASSERT_TRUE(delivering.wait());
    // Returns while the delivery is still running.
    subscription.cancel();
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(function.expired());
    goOn.signal();
    ASSERT_TRUE(sent.wait());
    sender.join();
    EXPECT_EQ(delivered, 1);
    EXPECT_TRUE(functionWasThere);
    EXPECT_TRUE(function.expired())
        << "the delivering thread releases the function, since the cancelling one could not";
    EXPECT_EQ(completions, 0);
}

TEST(Cancellation, SupportsManyThreadsThatSendCompleteAndCancelAtOnce) {
    for (int round = 0; round < 500; ++round) {
        std::vector<std::thread> threads;
        std::atomic<int> cancels{0};
        // Not atomic, since deliveries of one stream never overlap.
        int delivered = 0;
        int completions = 0;
        const auto held = std::make_shared<int>(1);
        {
            const auto publisher = AnyPublisher<int>::create([&](const Subscriber<int, Error>& subscriber) {
                                       threads.emplace_back([subscriber] {
                                           for (int n = 0; n < 10; ++n) subscriber.receive(n);
                                           subscriber.complete();
                                       });
                                       return Cancellable([&] { ++cancels; });
                                   }).tryMap([round](int n) -> Result<int, Error> {
                if (round % 3 == 0 && n == 5) return Failure(error(n));
                return n;
            });
            auto subscription = std::make_shared<Cancellable>(publisher.sink(
                [&, held](int) { ++delivered; }, [&, held](const Result<void, Error>&) { ++completions; }));
            for (int i = 0; i < 2; ++i) threads.emplace_back([subscription] { subscription->cancel(); });
        }
        for (auto& thread : threads) thread.join();
        EXPECT_LE(cancels, 1);
        EXPECT_LE(completions, 1);
        EXPECT_LE(delivered, 10);
        ASSERT_EQ(held.use_count(), 1);
    }
}
