#include "Support.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

using namespace VanticRestKit;
using test::error;

namespace {

using IntSource = test::ManualSource<int>;

/// An owner such as a screen: it holds its subscription, whose functions hold the owner.
struct Owner {
    std::optional<Cancellable> subscription;
    int values = 0;

    static std::weak_ptr<Owner> subscribed(const AnyPublisher<int>& publisher) {
        const auto owner = std::make_shared<Owner>();
        owner->subscription = publisher.sink([owner](int) { ++owner->values; },
                                             [owner](const Result<void, Error>&) { ++owner->values; });
        return owner;
    }
};

/// A source such as a transfer: it holds its subscriber, and the subscription holds the source.
struct Transfer {
    std::optional<Subscriber<int, Error>> subscriber;
};

AnyPublisher<int> transfers(std::weak_ptr<Transfer>& last) {
    return AnyPublisher<int>::create([&last](Subscriber<int, Error> subscriber) {
        const auto transfer = std::make_shared<Transfer>();
        transfer->subscriber = std::move(subscriber);
        last = transfer;
        return Cancellable([transfer] {});
    });
}

AnyPublisher<int> longer(const AnyPublisher<int>& publisher) {
    return publisher.map([](int n) { return n + 1; })
        .tryMap([](int n) -> Result<int, Error> { return n; })
        .mapError([](Error e) { return e; });
}

}  // namespace

TEST(SubscriptionLifetime, FreesItsFunctionsWhenTheStreamEnds) {
    const auto source = std::make_shared<IntSource>();
    const auto owner = Owner::subscribed(longer(IntSource::publisher(source)));
    EXPECT_FALSE(owner.expired());
    source->subscribers[0].receive(1);
    EXPECT_FALSE(owner.expired());
    source->subscribers[0].complete();
    EXPECT_TRUE(owner.expired());
}

TEST(SubscriptionLifetime, FreesItsFunctionsWhenAStepFails) {
    const auto source = std::make_shared<IntSource>();
    const auto owner = Owner::subscribed(
        IntSource::publisher(source).tryMap([](int n) -> Result<int, Error> { return Failure(error(n)); }));
    source->subscribers[0].receive(1);
    EXPECT_TRUE(owner.expired());
}

TEST(SubscriptionLifetime, FreesItsFunctionsWhenItIsCancelled) {
    const auto source = std::make_shared<IntSource>();
    const auto owner = Owner::subscribed(longer(IntSource::publisher(source)));
    owner.lock()->subscription->cancel();
    EXPECT_TRUE(owner.expired());
    EXPECT_EQ(source->cancels, 1);
}

TEST(SubscriptionLifetime, FreesItsFunctionsWhenItIsCancelledInsideOneOfThem) {
    const auto source = std::make_shared<IntSource>();
    std::optional<Cancellable> subscription;
    auto held = std::make_shared<int>(7);
    const std::weak_ptr<int> seen = held;
    int read = 0;
    subscription = IntSource::publisher(source).sink([&, kept = std::move(held)](int) {
        subscription.reset();
        read = *kept;
    });
    source->subscribers[0].receive(1);
    EXPECT_EQ(read, 7);
    EXPECT_TRUE(seen.expired());
}

TEST(SubscriptionLifetime, FreesASourceThatNeverEndsWhenDestroyed) {
    std::weak_ptr<Transfer> transfer;
    {
        const Cancellable subscription = longer(transfers(transfer)).sink([](int) {});
        EXPECT_FALSE(transfer.expired());
    }
    EXPECT_TRUE(transfer.expired());
}

TEST(SubscriptionLifetime, FreesASourceWhenTheStreamEndsEvenIfTheHandleIsKept) {
    std::weak_ptr<Transfer> transfer;
    const Cancellable subscription = longer(transfers(transfer)).sink([](int) {});
    const auto subscriber = *transfer.lock()->subscriber;
    subscriber.complete();
    EXPECT_TRUE(transfer.expired());
}

TEST(SubscriptionLifetime, FreesASourceThatIsDestroyedByItsOwnValue) {
    std::weak_ptr<Transfer> transfer;
    std::optional<Cancellable> subscription;
    int values = 0;
    subscription = longer(transfers(transfer)).sink([&](int) {
        ++values;
        subscription.reset();
    });
    // Sent through the source's own subscriber, which is destroyed with the source.
    const Transfer* const sending = transfer.lock().get();
    sending->subscriber->receive(1);
    EXPECT_EQ(values, 1);
    EXPECT_TRUE(transfer.expired());
}

TEST(SubscriptionLifetime, DeliversNothingIfTheSourceDropsItsSubscriber) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> seen = held;
    int delivered = 0;
    {
        const Cancellable subscription =
            AnyPublisher<int>::create([](const Subscriber<int, Error>&) { return Cancellable(); })
                .sink([&, kept = std::move(held)](int) { ++delivered; },
                      [&](const Result<void, Error>&) { ++delivered; });
        EXPECT_FALSE(seen.expired());
    }
    EXPECT_TRUE(seen.expired());
    EXPECT_EQ(delivered, 0);
}

TEST(SubscriptionLifetime, OutlivesThePublisherItCameFrom) {
    const auto source = std::make_shared<IntSource>();
    const auto recorder = std::make_shared<test::Recorder<int>>();
    std::optional<AnyPublisher<int>> publisher = longer(IntSource::publisher(source));
    const Cancellable subscription = test::Recorder<int>::of(recorder, *publisher);
    publisher.reset();
    source->subscribers[0].receive(1);
    EXPECT_EQ(recorder->values, std::vector<int>{2});
}

TEST(SubscriptionLifetime, ItsHandleCanBeDestroyedWhileItsSourceIsCancelled) {
    std::unique_ptr<Cancellable> subscription;
    const auto held = std::make_shared<int>(1);
    const auto publisher = AnyPublisher<int>::create(
        [&](const Subscriber<int, Error>&) { return Cancellable([&] { subscription.reset(); }); });
    subscription = std::make_unique<Cancellable>(publisher.sink([held](int) {}));
    subscription->cancel();
    EXPECT_EQ(subscription, nullptr);
    EXPECT_EQ(held.use_count(), 1);
}
