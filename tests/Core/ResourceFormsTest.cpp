// The cancellable ways to load a `Resource`: handle, coroutine, future and wait.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/LoadAll.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/Testing/ManualClock.h>
#include <VanticRestKit/Testing/ManualExecutor.h>

#include <Core/ActivityCounter.h>
#include <Core/FakeContext.h>

#include <chrono>
#include <thread>

namespace VanticRestKit {
namespace {

using namespace std::chrono_literals;
using Outcome = Result<double, LoaderError>;

struct TimeRoute {
    std::string path() const { return "v2/time"; }
};

/// The code of the transport error inside the error of a failed load.
std::int64_t transportCode(const LoaderError& error) {
    const NetworkError* const network = error.underlyingError()->as<NetworkError>();
    return network != nullptr && network->underlyingError() ? network->underlyingError()->code() : 0;
}

class ResourceForms : public ::testing::Test {
protected:
    void SetUp() override {
        test::zeroActivityCounter();
        context.log = [this](const Error& error) {
            reported.push_back(error);
            wasReportedOnSession =
                context.session->deliveryQueue().isCurrent() || context.session->queue().isCurrent();
        };
    }

    template <class T = double>
    Resource<T> resource() const {
        return *Resource<T>::make({.with = TimeRoute()}, context);
    }

    UniqueFunction<void(Outcome)> keep() {
        return [this, event = delivered](Outcome outcome) {
            outcomes.push_back(std::move(outcome));
            event.signal();
        };
    }

    test::FakeContext context;
    test::Event delivered;
    std::vector<Outcome> outcomes;
    std::vector<Error> reported;
    bool wasReportedOnSession = false;
};

TEST_F(ResourceForms, SendTheirRequestEvenIfTheResourceIsBusy) {
    const Resource<double> time = resource();
    time.load({.with = [](Outcome) {}});
    const Cancellable first = time.start({}, keep());
    const Cancellable second = time.start({}, keep());
    EXPECT_TRUE(context.session->started.wait(3));
    EXPECT_TRUE(time.isBusy());
    for (int i = 0; i < 3; ++i) context.session->reply(test::answer(200, "1.5"));
    ASSERT_TRUE(delivered.wait(2));
    EXPECT_EQ(*outcomes[0], 1.5);
    EXPECT_EQ(*outcomes[1], 1.5);
}

TEST_F(ResourceForms, DoNotMakeTheResourceBusy) {
    const Resource<double> time = resource();
    const Cancellable handle = time.start({}, keep());
    EXPECT_FALSE(time.isBusy());
    context.session->reply(test::answer(200, "1"));
}

TEST_F(ResourceForms, FailLikeALoad) {
    const Cancellable refused = resource().start({}, keep());
    context.session->reply(test::answer(404, "gone"));
    const Cancellable wrong = resource().start({}, keep());
    context.session->reply(test::answer(200, "{}"));
    ASSERT_TRUE(delivered.wait(2));
    EXPECT_TRUE(outcomes[0].error().is404Error());
    EXPECT_EQ(outcomes[1].error(), LoaderError::failedToDecode(std::nullopt));
    EXPECT_EQ(reported.size(), 1U);
}

TEST_F(ResourceForms, EndWithTheCancelledErrorWhichIsNotReportedToTheFailureHook) {
    const Cancellable handle = resource().start({}, keep());
    handle.cancel();
    ASSERT_TRUE(delivered.wait());
    EXPECT_TRUE(context.session->cancelled.wait());
    ASSERT_FALSE(outcomes[0]);
    EXPECT_EQ(transportCode(outcomes[0].error()), -999);
    EXPECT_EQ(outcomes[0].error(), LoaderError::serverError(std::nullopt));
    EXPECT_TRUE(reported.empty());
}

TEST_F(ResourceForms, ReportAMissedDeadlineToTheFailureHook) {
    Testing::ManualClock clock;
    const Cancellable handle = resource().start({.deadline = 5s}, keep());
    clock.advance(5s);
    ASSERT_TRUE(delivered.wait());
    EXPECT_EQ(transportCode(outcomes[0].error()), -1001);
    ASSERT_EQ(reported.size(), 1U);
    EXPECT_EQ(reported[0].as<NetworkError>()->underlyingError()->code(), -1001);
    EXPECT_EQ(reported[0].as<NetworkError>()->request()->url()->absoluteString(),
              "https://api.example.test/v2/time");
    EXPECT_TRUE(wasReportedOnSession);
}

TEST_F(ResourceForms, IgnoreTheirDeadlineOnceTheBodyHasArrived) {
    Testing::ManualClock clock;
    Testing::ManualExecutor executor;
    const Cancellable handle = resource().start({.on = executor.queue(), .deadline = 5s}, keep());
    context.session->reply(test::answer(200, "1.5"));
    clock.advance(1min);
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_TRUE(outcomes[0]);
}

TEST_F(ResourceForms, LowerTheActivityCounterForEveryOutcome) {
    Cancellable handle = resource().start({}, keep());
    EXPECT_EQ(test::activityCounter(), 1);
    context.session->reply(test::answer(200, "1"));
    EXPECT_EQ(test::activityCounter(), 0);
    handle = resource().start({}, keep());
    EXPECT_EQ(test::activityCounter(), 1);
    handle.cancel();
    ASSERT_TRUE(delivered.wait(2));
    context.session->reply(test::answer(200, "1"));
    EXPECT_EQ(test::activityCounter(), 0);
}

TEST_F(ResourceForms, CompleteAfterTheResourceIsDestroyed) {
    const Cancellable handle = [&] { return resource().start({}, keep()); }();
    context.session->reply(test::answer(200, "1.5"));
    EXPECT_EQ(*outcomes.at(0), 1.5);
}

TEST_F(ResourceForms, CanBeAwaited) {
    const auto awaiting = [this]() -> Task<Outcome> {
        const Resource<double> time = resource();
        co_return co_await time.value({.deadline = 1h});
    };
    std::thread answering([this] { context.session->reply(test::answer(200, "1.5")); });
    EXPECT_EQ(*blockOn(awaiting()), 1.5);
    answering.join();
}

TEST_F(ResourceForms, CanBlockTheCallingThread) {
    auto future = resource().future();
    context.session->reply(test::answer(200, "1.5"));
    EXPECT_EQ(*future.get(), 1.5);
    std::thread answering([this] { context.session->reply(test::answer(200, "2.5")); });
    EXPECT_EQ(*resource().wait(), 2.5);
    answering.join();
}

TEST_F(ResourceForms, AWaitThatWouldNeverEndFailsAtOnce) {
    std::optional<Outcome> inner;
    resource()
        .start({.deadline = 0s},
               [&, event = delivered](const Outcome&) {
                   inner = resource().wait();
                   event.signal();
               })
        .detach();
    ASSERT_TRUE(delivered.wait());
    ASSERT_FALSE(*inner);
    EXPECT_EQ(inner->error().underlyingError()->domain(), "VanticRestKit.Wait");
    // The load continues without its future.
    context.session->reply(test::answer(200, "1"));
}

TEST_F(ResourceForms, DeliverDataAndStringsWithoutDecoding) {
    const std::string body("not JSON \xff\0 at all", 17);
    auto data = resource<Data>().future();
    context.session->reply(test::answer(200, Data(body)));
    EXPECT_EQ(data.get()->view(), body);
    auto text = resource<RawText>().future();
    context.session->reply(test::answer(200, Data(body)));
    EXPECT_EQ(text.get()->text, body);
    auto string = resource<std::string>().future();
    context.session->reply(test::answer(200, R"("a\u0062")"));
    EXPECT_EQ(*string.get(), "ab");
}

TEST_F(ResourceForms, DeliverDataToLoadsAndPublishersToo) {
    std::vector<std::string> bodies;
    const Resource<Data> picture = resource<Data>();
    picture.load({.with = [&](Result<Data, LoaderError> result) { bodies.emplace_back(result->view()); }});
    context.session->reply(test::answer(200, "picture"));
    const Cancellable subscription = picture.optionalResourceLoader().sink(
        [&](std::optional<Data> data) { bodies.emplace_back(data->view()); });
    context.session->reply(test::answer(200, "null"));
    EXPECT_EQ(bodies, (std::vector<std::string>{"picture", "null"}));
}

/// A host's service without a `start` of its own.
class PlainService final : public Serviceable {
public:
    explicit PlainService(Result<Data, Error> outcome) : outcome_(std::move(outcome)) {}
    void fetch(FetchArguments) override {
        ADD_FAILURE() << "the publisher is expected, since it can be cancelled";
    }
    AnyPublisher<Data> fetch() override {
        return outcome_ ? AnyPublisher<Data>::just(*outcome_) : AnyPublisher<Data>::fail(outcome_.error());
    }

private:
    Result<Data, Error> outcome_;
};

TEST_F(ResourceForms, WorkWithAServiceThatOnlyHasAPublisher) {
    const Resource<double> good(
        {.withService = std::make_shared<PlainService>(Data("1.5")), .andDecoder = JSONDecoder()});
    EXPECT_EQ(*good.wait(), 1.5);
    const Resource<double> bad(
        {.withService = std::make_shared<PlainService>(Failure(Error(NSError("d", 5)))),
         .andDecoder = JSONDecoder()});
    EXPECT_EQ(bad.wait().error().underlyingError()->code(), 5);
    const Outcome stopped = good.wait({.deadline = 0s});
    EXPECT_EQ(stopped.error().underlyingError()->code(), -1001);
}

class LoadAll : public ResourceForms {
protected:
    std::vector<Resource<double>> resources(std::size_t count) const {
        return std::vector<Resource<double>>(count, resource());
    }
    std::size_t open() const { return static_cast<std::size_t>(context.session->started.count()) - replies; }
    void reply(const char* body) {
        context.session->reply(test::answer(200, body));
        ++replies;
    }

    std::size_t replies = 0;
};

TEST_F(LoadAll, RespectsItsLimitAndKeepsTheOrderOfTheList) {
    auto results = loadAll(resources(5), {.limit = 2}).future();
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(context.session->started.wait(std::min(i + 2, 5)));
        EXPECT_LE(open(), 2U);
        reply(std::to_string(i).c_str());
    }
    const std::vector<Outcome> all = results.get();
    ASSERT_EQ(all.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(*all[i], static_cast<double>(i));
}

TEST_F(LoadAll, OfAnEmptyListEndsAtOnce) { EXPECT_TRUE(loadAll(resources(0)).wait().empty()); }

TEST_F(LoadAll, ContinuesWithTheOthersWhenOneFails) {
    auto results = loadAll(resources(2)).future();
    reply("{}");
    reply("1.5");
    const std::vector<Outcome> all = results.get();
    EXPECT_FALSE(all[0]);
    EXPECT_EQ(*all[1], 1.5);
}

TEST_F(LoadAll, KeepsFinishedOutcomesAndSendsNothingMoreWhenCancelled) {
    const DispatchQueue queue("chosen");
    std::vector<Outcome> all;
    bool isOnQueue = false;
    const Cancellable handle =
        loadAll(resources(4), {.limit = 2})
            .start({.on = queue}, [&, event = delivered](std::vector<Outcome> results) {
                all = std::move(results);
                isOnQueue = queue.isCurrent();
                event.signal();
            });
    reply("1.5");
    ASSERT_TRUE(context.session->started.wait(3));
    handle.cancel();
    ASSERT_TRUE(delivered.wait());
    EXPECT_TRUE(isOnQueue);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(*all[0], 1.5);
    for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(transportCode(all[i].error()), -999);
    EXPECT_EQ(context.session->started.count(), 3);
}

TEST_F(LoadAll, HasOneDeadlineForTheWholeList) {
    const std::vector<Outcome> all = loadAll(resources(3), {.limit = 1}).wait({.deadline = 10ms});
    for (const Outcome& outcome : all) EXPECT_EQ(transportCode(outcome.error()), -1001);
    EXPECT_EQ(context.session->started.count(), 1);
}

TEST_F(LoadAll, IsCancelledByItsToken) {
    std::stop_source stop;
    auto results = loadAll(resources(3), {.limit = 1}).future({.stop = stop.get_token()});
    ASSERT_TRUE(context.session->started.wait());
    stop.request_stop();
    for (const Outcome& outcome : results.get()) EXPECT_EQ(transportCode(outcome.error()), -999);
    EXPECT_EQ(context.session->started.count(), 1);
}

TEST_F(LoadAll, DeliversNothingAfterItsHandleIsDestroyed) {
    {
        const Cancellable handle = loadAll(resources(2)).start({}, [](std::vector<Outcome>) { FAIL(); });
    }
    // By now either nothing was started or everything is cancelled.
    auto after = resource().future();
    ASSERT_TRUE(context.session->started.wait());
    while (!after.isReady()) reply("1");
    EXPECT_TRUE(after.get());
}

TEST_F(LoadAll, ReleasesItsCompletionAndItsLoadsWhenItsHandleIsDestroyed) {
    const test::Event released;
    {
        auto held = std::shared_ptr<void>(nullptr, [released](void*) { released.signal(); });
        const Cancellable handle =
            loadAll(resources(3), {.limit = 1}).start({}, [held = std::move(held)](std::vector<Outcome>) {
                FAIL() << "was dropped";
            });
        ASSERT_TRUE(context.session->started.wait());
    }
    EXPECT_TRUE(released.wait());
    EXPECT_TRUE(context.session->cancelled.wait());
    EXPECT_EQ(context.session->started.count(), 1) << "no further load is started";
}

TEST_F(LoadAll, FailsAtOnceIfItsWaitWouldNeverEnd) {
    std::vector<Outcome> all;
    resource()
        .start({.deadline = 0s},
               [&, event = delivered](const Outcome&) {
                   all = loadAll(resources(2)).wait();
                   event.signal();
               })
        .detach();
    ASSERT_TRUE(delivered.wait());
    ASSERT_EQ(all.size(), 2U);
    for (const Outcome& outcome : all) {
        EXPECT_EQ(outcome.error().underlyingError()->domain(), "VanticRestKit.Wait");
    }
    // The loads continue without their future.
    for (int i = 0; i < 2; ++i) reply("1");
}

}  // namespace
}  // namespace VanticRestKit
