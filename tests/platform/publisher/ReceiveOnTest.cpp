#include "Support.h"

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

using namespace VanticRestKit;
using test::error;
using test::Event;

namespace {

using IntSource = test::ManualSource<int>;

/// Waits until everything posted to `queue` so far has run.
[[nodiscard]] bool drained(const DispatchQueue& queue) {
    const Event reached;
    queue.async([reached] { reached.signal(); });
    return reached.wait();
}

}  // namespace

TEST(ReceiveOn, DeliversValuesAndTheEndInOrderOnTheQueue) {
    const DispatchQueue queue("test");
    const auto source = std::make_shared<IntSource>();
    const Event ended;
    std::vector<int> seen;
    bool onQueue = true;
    const Cancellable subscription = IntSource::publisher(source).receiveOn(queue).sink(
        [&](int n) {
            seen.push_back(n);
            onQueue = onQueue && queue.isCurrent();
        },
        [&, ended](const Result<void, Error>& end) {
            onQueue = onQueue && queue.isCurrent() && end.has_value();
            ended.signal();
        });
    for (int n = 0; n < 100; ++n) source->subscribers[0].receive(n);
    source->subscribers[0].complete();
    ASSERT_TRUE(ended.wait());
    EXPECT_TRUE(onQueue);
    ASSERT_EQ(seen.size(), 100U);
    for (int n = 0; n < 100; ++n) ASSERT_EQ(seen[static_cast<std::size_t>(n)], n);
    EXPECT_EQ(source->cancels, 0);
}

TEST(ReceiveOn, DeliversNothingAfterACancelOnTheQueue) {
    const DispatchQueue queue("test");
    const auto source = std::make_shared<IntSource>();
    const Event posted;
    std::optional<Cancellable> subscription;
    std::vector<int> seen;
    int completions = 0;
    subscription = IntSource::publisher(source).receiveOn(queue).sink(
        [&](int n) {
            EXPECT_TRUE(posted.wait());
            seen.push_back(n);
            subscription.reset();
        },
        [&](const Result<void, Error>&) { ++completions; });
    const auto subscriber = source->subscribers[0];
    subscriber.receive(1);
    subscriber.receive(2);
    posted.signal();
    ASSERT_TRUE(drained(queue));
    subscriber.receive(3);
    subscriber.complete();
    ASSERT_TRUE(drained(queue));
    EXPECT_EQ(seen, std::vector<int>{1});
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(source->cancels, 1);
}

TEST(ReceiveOn, CancelsTheSourceAtOnceWhenAnUpstreamStepFails) {
    const DispatchQueue queue("test");
    const auto source = std::make_shared<IntSource>();
    const Event ended;
    int calls = 0;
    int code = 0;
    const Cancellable subscription = IntSource::publisher(source)
                                         .tryMap([&](int n) -> Result<int, Error> {
                                             ++calls;
                                             return Failure(error(n));
                                         })
                                         .receiveOn(queue)
                                         .sink([](int) {},
                                               [&, ended](const Result<void, Error>& end) {
                                                   code = static_cast<int>(end.error().code());
                                                   ended.signal();
                                               });
    source->subscribers[0].receive(5);
    EXPECT_EQ(source->cancels, 1);
    source->subscribers[0].receive(6);
    ASSERT_TRUE(ended.wait());
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(code, 5);
}

TEST(ReceiveOn, CancelsTheSourceWhenADownstreamStepFails) {
    const DispatchQueue queue("test");
    const auto source = std::make_shared<IntSource>();
    const Cancellable subscription =
        IntSource::publisher(source)
            .receiveOn(queue)
            .tryMap([](int n) -> Result<int, Error> { return Failure(error(n)); })
            .sink([](int) {});
    const auto subscriber = source->subscribers[0];
    subscriber.receive(5);
    ASSERT_TRUE(drained(queue));
    EXPECT_TRUE(subscriber.isEnded());
    EXPECT_EQ(source->cancels, 1);
}

TEST(ReceiveOn, FreesEverythingWhenItIsDestroyedOrEnds) {
    const DispatchQueue queue("test");
    for (const bool ends : {false, true}) {
        const auto source = std::make_shared<IntSource>();
        const auto held = std::make_shared<int>(1);
        {
            const Cancellable subscription = IntSource::publisher(source)
                                                 .map([held](int n) { return n; })
                                                 .receiveOn(queue)
                                                 .map([held](int n) { return n; })
                                                 .sink([held](int) {});
            source->subscribers[0].receive(1);
            if (ends) {
                source->subscribers[0].complete();
                ASSERT_TRUE(drained(queue));
            }
        }
        source->subscribers.clear();
        ASSERT_TRUE(drained(queue));
        EXPECT_EQ(held.use_count(), 1);
    }
}

TEST(ReceiveOn, DeliversValuesSentOnAnotherQueue) {
    const DispatchQueue sending("sending");
    const DispatchQueue queue("test");
    constexpr int streams = 50;
    const Event ended;
    std::vector<Cancellable> subscriptions;
    // Not atomic: all of it happens on the queue.
    int values = 0;
    const auto publisher = AnyPublisher<int>::create([sending](const Subscriber<int, Error>& subscriber) {
                               sending.async([subscriber] {
                                   for (int n = 0; n < 20; ++n) subscriber.receive(n);
                                   subscriber.complete();
                               });
                               return Cancellable();
                           }).receiveOn(queue);
    for (int i = 0; i < streams; ++i) {
        subscriptions.push_back(
            publisher.sink([&](int) { ++values; }, [ended](const Result<void, Error>&) { ended.signal(); }));
    }
    ASSERT_TRUE(ended.wait(streams));
    EXPECT_EQ(values, streams * 20);
}
