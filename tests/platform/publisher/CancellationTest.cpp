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

using IntHand = test::Hand<int>;
using IntNotes = test::Notes<int>;

}  // namespace

TEST(Cancellation, ReachesTheSourceWhenTheHandleIsDropped) {
    const auto hand = std::make_shared<IntHand>();
    const auto notes = std::make_shared<IntNotes>();
    int calls = 0;
    {
        const Cancellable subscription = IntNotes::of(notes, IntHand::publisher(hand)
                                                                 .map([&](int n) {
                                                                     ++calls;
                                                                     return n;
                                                                 })
                                                                 .mapError([](Error e) { return e; }));
        hand->subscribers[0].receive(1);
        EXPECT_EQ(hand->cancels, 0);
    }
    EXPECT_EQ(hand->cancels, 1);
    EXPECT_TRUE(hand->subscribers[0].isEnded());
    hand->subscribers[0].receive(2);
    hand->subscribers[0].complete();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(notes->values, std::vector<int>{1});
    EXPECT_EQ(notes->completions(), 0);
}

TEST(Cancellation, LeavesOtherSubscriptionsOfThePublisherAlone) {
    const auto hand = std::make_shared<IntHand>();
    const auto publisher = IntHand::publisher(hand);
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable stays = IntNotes::of(notes, publisher);
    {
        const Cancellable goes = publisher.sink([](int) {});
    }
    hand->subscribers[0].receive(1);
    EXPECT_EQ(notes->values, std::vector<int>{1});
    EXPECT_EQ(hand->cancels, 1);
}

TEST(Cancellation, DoesNotReachASourceThatHasEndedByItself) {
    const auto hand = std::make_shared<IntHand>();
    const auto held = std::make_shared<int>(1);
    std::optional<Subscriber<int, Error>> subscriber;
    {
        const Cancellable subscription = AnyPublisher<int>::create([&](Subscriber<int, Error> given) {
                                             subscriber = std::move(given);
                                             return Cancellable([hand, held] { ++hand->cancels; });
                                         }).sink([](int) {});
        EXPECT_EQ(held.use_count(), 2);
        subscriber->complete();
        EXPECT_EQ(held.use_count(), 1) << "the way back to the source is dropped all the same";
    }
    EXPECT_EQ(hand->cancels, 0);
}

TEST(Cancellation, ReachesASourceThatCouldOnlyBeToldAfterItHadSent) {
    int cancels = 0;
    const auto publisher = AnyPublisher<int>::create([&](const Subscriber<int, Error>& subscriber) {
                               subscriber.receive(1);
                               return Cancellable([&] { ++cancels; });
                           }).tryMap([](int) -> Result<int, Error> { return Failure(error(1)); });
    const Cancellable subscription = publisher.sink([](int) {});
    EXPECT_EQ(cancels, 1);
}

TEST(Cancellation, ReachesTheSourceOfAPublisherThatASourceWentOnAs) {
    const auto hand = std::make_shared<IntHand>();
    const auto inner = IntHand::publisher(hand).tryMap([](int n) -> Result<int, Error> {
        if (n < 0) return Failure(error(n));
        return n;
    });
    const auto outer = AnyPublisher<int>::create(
        [inner](Subscriber<int, Error> subscriber) { return inner.subscribe(std::move(subscriber)); });
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable failing = IntNotes::of(notes, outer);
    hand->subscribers[0].receive(-1);
    EXPECT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(hand->cancels, 1);
    { const Cancellable dropped = IntNotes::of(notes, outer); }
    EXPECT_EQ(hand->cancels, 2);
    const Cancellable ending = IntNotes::of(notes, outer);
    hand->subscribers[2].complete();
    EXPECT_EQ(notes->normalEnds, 1);
    EXPECT_EQ(hand->cancels, 2);
}

TEST(Cancellation, OnTheDeliveringThreadStopsEverythingAtOnce) {
    const auto hand = std::make_shared<IntHand>();
    std::optional<Cancellable> subscription;
    std::vector<int> seen;
    int completions = 0;
    subscription = IntHand::publisher(hand).sink(
        [&](int n) {
            seen.push_back(n);
            subscription->cancel();
        },
        [&](const Result<void, Error>&) { ++completions; });
    const auto subscriber = hand->subscribers[0];
    subscriber.receive(1);
    subscriber.receive(2);
    subscriber.complete();
    EXPECT_EQ(seen, std::vector<int>{1});
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(hand->cancels, 1);
}

TEST(Cancellation, InsideAStepKeepsTheValueFromTheStepsBelow) {
    const auto hand = std::make_shared<IntHand>();
    std::optional<Cancellable> subscription;
    int below = 0;
    subscription = IntHand::publisher(hand)
                       .map([&](int n) {
                           subscription.reset();
                           return n;
                       })
                       .map([&](int n) {
                           ++below;
                           return n;
                       })
                       .sink([&](int) { ++below; });
    hand->subscribers[0].receive(1);
    EXPECT_EQ(below, 0);
    EXPECT_EQ(hand->cancels, 1);
}

TEST(Cancellation, AtTheElementThatReplacesAnErrorKeepsTheEndAway) {
    const auto hand = std::make_shared<IntHand>();
    std::optional<Cancellable> subscription;
    int ends = 0;
    subscription = IntHand::publisher(hand).replaceError(0).sink([&](int) { subscription.reset(); },
                                                                 [&](const Result<void, Never>&) { ++ends; });
    hand->subscribers[0].complete(Failure(error(1)));
    EXPECT_EQ(ends, 0);
}

TEST(Cancellation, FromAnotherThreadLetsAtMostWhatWasBeingDeliveredThrough) {
    const Event delivering, goOn, sent;
    std::atomic<int> cancels{0};
    std::thread source;
    const auto publisher = AnyPublisher<int>::create([&](const Subscriber<int, Error>& subscriber) {
        source = std::thread([=] {
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
    // Returns although the delivery is not over.
    subscription.cancel();
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(function.expired());
    goOn.signal();
    ASSERT_TRUE(sent.wait());
    source.join();
    EXPECT_EQ(delivered, 1);
    EXPECT_TRUE(functionWasThere);
    EXPECT_TRUE(function.expired()) << "the delivering thread drops what the cancelling one had to leave";
    EXPECT_EQ(completions, 0);
}

TEST(Cancellation, SupportsManyThreadsThatSendCompleteAndCancelAtOnce) {
    for (int round = 0; round < 500; ++round) {
        std::vector<std::thread> threads;
        std::atomic<int> cancels{0};
        // Not atomic: deliveries of one stream never overlap.
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
