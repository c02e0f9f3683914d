#include <gtest/gtest.h>
#include <VanticRestKit/Core/Loader.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/platform/dispatch/detail/Probes.h>

#include <Core/FakeContext.h>
#include <Core/FakeSession.h>

namespace VanticRestKit {

namespace detail {

/// Gives the tests access to the private members of a loader.
struct LoaderProbe {
    static const DispatchQueue& queue(const LoaderCore& loader) { return loader.dispatchque_; }
    static LoaderState state(const LoaderCore& loader) { return loader.state_.load(); }
};

}  // namespace detail

namespace {

using detail::LoaderProbe;
using Outcome = Result<double, LoaderError>;

/// A loader of a number that uses a fake session. Outcomes are recorded on the session's queue, and `reply` waits for
/// that.
class LoaderTest : public ::testing::Test {
protected:
    std::shared_ptr<Loader<double>> makeLoader() {
        return Loader<double>::make({.with = NetworkServiceble::make(
                                         {.with = URLRequest(test::url("https://api.example.test/v2/time")),
                                          .and_ = session,
                                          .logError = nullptr})});
    }

    void load(Loader<double>& loader) {
        loader.load({.withDecoder =
                         [this](const Data& body) {
                             ++decodes;
                             decodedOnSession = session->queue().isCurrent();
                             return JSONDecoder().decode<double>(body);
                         }},
                    [this](Outcome outcome) {
                        outcomes.push_back(std::move(outcome));
                        completedOnSession = session->queue().isCurrent();
                    });
    }

    const std::shared_ptr<test::FakeSession> session = std::make_shared<test::FakeSession>();
    std::vector<Outcome> outcomes;
    int decodes = 0;
    bool decodedOnSession = false;
    bool completedOnSession = false;
};

TEST_F(LoaderTest, EachHasItsOwnSerialQueueWithTheSameLabel) {
    const auto one = makeLoader();
    const auto other = makeLoader();
    EXPECT_EQ(LoaderProbe::queue(*one).label(), "dev.vantic.lumenoKitSDK.Loader");
    EXPECT_EQ(LoaderProbe::queue(*other).label(), "dev.vantic.lumenoKitSDK.Loader");
    EXPECT_FALSE(LoaderProbe::queue(*one) == LoaderProbe::queue(*other));
}

/// Answers at once, and records the queue on which its request was started.
class StartingService final : public Serviceable {
public:
    void fetch(FetchArguments arguments) override {
        startedOnQueue = queue->isCurrent();
        arguments.with.value()(Data("1"));
        done.signal();
    }
    AnyPublisher<Data> fetch() override { return AnyPublisher<Data>::fail(NSError("unused", 0)); }

    const DispatchQueue* queue = nullptr;
    bool startedOnQueue = false;
    const test::Event done;
};

TEST_F(LoaderTest, TheRequestStartsOnTheLoadersQueue) {
    const auto service = std::make_shared<StartingService>();
    const auto loader = Loader<double>::make({.with = service});
    service->queue = &LoaderProbe::queue(*loader);
    load(*loader);
    ASSERT_TRUE(service->done.wait());
    EXPECT_TRUE(service->startedOnQueue);
}

TEST_F(LoaderTest, HasAWorkItemOnlyWhileLoading) {
    static_assert(std::is_same_v<Loader<double>::State, LoaderState>);
    using State = Loader<double>::State;
    const auto loader = makeLoader();
    EXPECT_EQ(LoaderProbe::state(*loader).kind(), State::Kind::idle);
    EXPECT_EQ(LoaderProbe::state(*loader).item(), nullptr);
    load(*loader);
    EXPECT_EQ(LoaderProbe::state(*loader).kind(), State::Kind::loading);
    EXPECT_NE(LoaderProbe::state(*loader).item(), nullptr);
    session->reply(test::answer(200, "1"));
    EXPECT_EQ(LoaderProbe::state(*loader).kind(), State::Kind::idle);
    EXPECT_EQ(LoaderProbe::state(*loader).item(), nullptr);
}

TEST_F(LoaderTest, DecodingAndCompletionRunOnTheSessionsQueue) {
    const auto loader = makeLoader();
    load(*loader);
    session->reply(test::answer(200, "1732.5"));
    ASSERT_EQ(outcomes.size(), 1U);
    ASSERT_TRUE(outcomes[0]);
    EXPECT_EQ(*outcomes[0], 1732.5);
    EXPECT_TRUE(decodedOnSession);
    EXPECT_TRUE(completedOnSession);
}

TEST_F(LoaderTest, ALoadReturnsBeforeItsRequestStarts) {
    const auto loader = makeLoader();
    {
        const detail::PoolPause pause;
        load(*loader);
        EXPECT_TRUE(loader->isBusy());
        EXPECT_EQ(session->started.count(), 0) << "the request starts on a queue of the loader, not here";
    }
    session->reply(test::answer(200, "1"));
    EXPECT_EQ(outcomes.size(), 1U);
}

TEST_F(LoaderTest, ALoadCancelledBeforeItsStartLeavesTheLoaderLoadingForever) {
    const auto loader = makeLoader();
    {
        const detail::PoolPause pause;
        load(*loader);
        loader->cancel();
    }
    EXPECT_TRUE(loader->isBusy());
    load(*loader);
    loader->cancel();
    EXPECT_TRUE(loader->isBusy());

    // When a loader made later gets its response, all blocks posted before it have run.
    const auto later = makeLoader();
    load(*later);
    session->reply(test::answer(200, "2"));
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(*outcomes[0], 2.0);
    EXPECT_EQ(session->requests().size(), 1U) << "the cancelled request was never sent";
    EXPECT_TRUE(loader->isBusy());
}

TEST_F(LoaderTest, ACancelledLoadReleasesEverythingItHeld) {
    const auto loader = makeLoader();
    auto token = std::make_shared<int>();
    const std::weak_ptr<int> held = token;
    const detail::PoolPause pause;
    loader->load({.withDecoder = [loader, token](const Data&) -> Result<double, Error> { return 0.0; }},
                 [token](Outcome) {});
    token.reset();
    EXPECT_FALSE(held.expired());
    loader->cancel();
    EXPECT_TRUE(held.expired());
}

TEST_F(LoaderTest, CancellingAStartedLoadChangesNothing) {
    const auto loader = makeLoader();
    load(*loader);
    ASSERT_TRUE(session->started.wait());
    loader->cancel();
    EXPECT_TRUE(loader->isBusy());
    session->reply(test::answer(200, "3"));
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(*outcomes[0], 3.0);
    EXPECT_FALSE(loader->isBusy());
}

TEST_F(LoaderTest, ALoaderDestroyedBeforeTheStartSendsNothing) {
    auto loader = makeLoader();
    const std::weak_ptr<Loader<double>> weak = loader;
    {
        const detail::PoolPause pause;
        load(*loader);
        loader.reset();
        EXPECT_TRUE(weak.expired()) << "a load does not keep its loader alive";
    }
    const auto later = makeLoader();
    load(*later);
    session->reply(test::answer(200, "1"));
    EXPECT_EQ(session->requests().size(), 1U);
    EXPECT_EQ(outcomes.size(), 1U);
}

/// Holds its completion until the test calls it, so that a loader can be destroyed during its request.
class HeldService final : public Serviceable {
public:
    void fetch(FetchArguments arguments) override {
        completion = std::move(arguments.with).value();
        started.signal();
    }
    AnyPublisher<Data> fetch() override { return AnyPublisher<Data>::fail(NSError("unused", 0)); }

    Completion completion;
    const test::Event started;
};

class DestroyedLoaderTest : public LoaderTest {
protected:
    /// Starts a load and destroys its loader while the request is in flight.
    void loadAndDestroyLoader() {
        const test::Event gone;
        // Only the loader holds this handle. The queue that started the request holds the loader a little
        // longer.
        auto loader = Loader<double>::make(
            {.with = std::shared_ptr<Serviceable>(service.get(), [gone](Serviceable*) { gone.signal(); })});
        load(*loader);
        ASSERT_TRUE(service->started.wait());
        loader.reset();
        ASSERT_TRUE(gone.wait());
    }

    const std::shared_ptr<HeldService> service = std::make_shared<HeldService>();
};

TEST_F(DestroyedLoaderTest, ASuccessIsDecodedButTheCompletionIsNotCalled) {
    loadAndDestroyLoader();
    service->completion(Data("1"));
    EXPECT_EQ(decodes, 1);
    EXPECT_TRUE(outcomes.empty());
}

TEST_F(DestroyedLoaderTest, AFailureIsStillDelivered) {
    loadAndDestroyLoader();
    service->completion(Failure(Error(NSError("D", 7))));
    ASSERT_EQ(outcomes.size(), 1U);
    ASSERT_FALSE(outcomes[0]);
    EXPECT_EQ(outcomes[0].error(), LoaderError::serverError(std::nullopt));
    EXPECT_EQ(outcomes[0].error().underlyingError()->code(), 7);
}

TEST_F(LoaderTest, ASecondLoadRepeatsTheSameRequest) {
    const auto loader = makeLoader();
    load(*loader);
    session->reply(test::answer(500, "x"));
    load(*loader);
    session->reply(test::answer(200, "4"));
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_FALSE(outcomes[0]);
    EXPECT_EQ(*outcomes[1], 4.0);
    const std::vector<URLRequest> requests = session->requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0], requests[1]);
}

TEST_F(LoaderTest, CancellingAnIdleLoaderDoesNothing) {
    const auto loader = makeLoader();
    loader->cancel();
    EXPECT_FALSE(loader->isBusy());
    load(*loader);
    session->reply(test::answer(200, "5"));
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(*outcomes[0], 5.0);
}

}  // namespace
}  // namespace VanticRestKit
