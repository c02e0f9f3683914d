#include "Support.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

using namespace VanticRestKit;
using test::error;

namespace {

using IntHand = test::Hand<int>;

/// An owner such as a screen: holds its subscription, and its functions hold the owner.
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

/// A source such as a transfer: it holds its subscriber, and its subscription holds it.
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
    const auto hand = std::make_shared<IntHand>();
    const auto owner = Owner::subscribed(longer(IntHand::publisher(hand)));
    EXPECT_FALSE(owner.expired());
    hand->subscribers[0].receive(1);
    EXPECT_FALSE(owner.expired());
    hand->subscribers[0].complete();
    EXPECT_TRUE(owner.expired());
}

TEST(SubscriptionLifetime, FreesItsFunctionsWhenAStepFails) {
    const auto hand = std::make_shared<IntHand>();
    const auto owner = Owner::subscribed(
        IntHand::publisher(hand).tryMap([](int n) -> Result<int, Error> { return Failure(error(n)); }));
    hand->subscribers[0].receive(1);
    EXPECT_TRUE(owner.expired());
}

TEST(SubscriptionLifetime, FreesItsFunctionsWhenItIsCancelled) {
    const auto hand = std::make_shared<IntHand>();
    const auto owner = Owner::subscribed(longer(IntHand::publisher(hand)));
    owner.lock()->subscription->cancel();
    EXPECT_TRUE(owner.expired());
    EXPECT_EQ(hand->cancels, 1);
}

TEST(SubscriptionLifetime, FreesItsFunctionsWhenItIsCancelledInsideOneOfThem) {
    const auto hand = std::make_shared<IntHand>();
    std::optional<Cancellable> subscription;
    auto held = std::make_shared<int>(7);
    const std::weak_ptr<int> seen = held;
    int read = 0;
    subscription = IntHand::publisher(hand).sink([&, kept = std::move(held)](int) {
        subscription.reset();
        read = *kept;
    });
    hand->subscribers[0].receive(1);
    EXPECT_EQ(read, 7);
    EXPECT_TRUE(seen.expired());
}

TEST(SubscriptionLifetime, FreesASourceThatNeverEndsWhenItIsDropped) {
    std::weak_ptr<Transfer> transfer;
    {
        const Cancellable subscription = longer(transfers(transfer)).sink([](int) {});
        EXPECT_FALSE(transfer.expired());
    }
    EXPECT_TRUE(transfer.expired());
}

TEST(SubscriptionLifetime, FreesASourceWhenTheStreamEndsThoughTheHandleIsKept) {
    std::weak_ptr<Transfer> transfer;
    const Cancellable subscription = longer(transfers(transfer)).sink([](int) {});
    const auto subscriber = *transfer.lock()->subscriber;
    subscriber.complete();
    EXPECT_TRUE(transfer.expired());
}

TEST(SubscriptionLifetime, FreesASourceThatIsDestroyedByItsOwnSending) {
    std::weak_ptr<Transfer> transfer;
    std::optional<Cancellable> subscription;
    int values = 0;
    subscription = longer(transfers(transfer)).sink([&](int) {
        ++values;
        subscription.reset();
    });
    // Through the source's own subscriber, which goes with the source.
    const Transfer* const sending = transfer.lock().get();
    sending->subscriber->receive(1);
    EXPECT_EQ(values, 1);
    EXPECT_TRUE(transfer.expired());
}

TEST(SubscriptionLifetime, DeliversNothingWhenTheSourceForgetsItsSubscriber) {
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
    const auto hand = std::make_shared<IntHand>();
    const auto notes = std::make_shared<test::Notes<int>>();
    std::optional<AnyPublisher<int>> publisher = longer(IntHand::publisher(hand));
    const Cancellable subscription = test::Notes<int>::of(notes, *publisher);
    publisher.reset();
    hand->subscribers[0].receive(1);
    EXPECT_EQ(notes->values, std::vector<int>{2});
}

TEST(SubscriptionLifetime, MayLoseItsHandleInsideTheCancellingOfItsSource) {
    std::unique_ptr<Cancellable> subscription;
    const auto held = std::make_shared<int>(1);
    const auto publisher = AnyPublisher<int>::create(
        [&](const Subscriber<int, Error>&) { return Cancellable([&] { subscription.reset(); }); });
    subscription = std::make_unique<Cancellable>(publisher.sink([held](int) {}));
    subscription->cancel();
    EXPECT_EQ(subscription, nullptr);
    EXPECT_EQ(held.use_count(), 1);
}
