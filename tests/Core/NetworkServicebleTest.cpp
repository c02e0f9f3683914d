#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <Core/ActivityCounter.h>
#include <Core/FakeContext.h>
#include <Core/FakeSession.h>

namespace VanticRestKit {
namespace {

URLRequest timeRequest() { return URLRequest(test::url("https://api.example.test/v2/time")); }

const NetworkError& networkError(const Error& error) {
    static const NetworkError none = NetworkError::internalSDKError("this was no NetworkError");
    const NetworkError* const found = error.as<NetworkError>();
    EXPECT_NE(found, nullptr) << error.localizedDescription();
    return found != nullptr ? *found : none;
}

/// A service that uses a fake session. Outcomes are recorded on the session's queue, and `reply` waits for that.
class NetworkServicebleTest : public ::testing::Test {
protected:
    void SetUp() override { test::zeroActivityCounter(); }

    std::shared_ptr<NetworkServiceble> makeService() {
        return NetworkServiceble::make(
            {.with = timeRequest(), .and_ = session, .logError = [this](const Error& error) {
                 reported.push_back(error);
                 allOnSession = allOnSession && session->queue().isCurrent();
             }});
    }

    void fetch(NetworkServiceble& service) {
        service.fetch({.with = [this](Result<Data, Error> result) {
            outcomes.push_back(std::move(result));
            allOnSession = allOnSession && session->queue().isCurrent();
        }});
    }

    /// The outcome of one fetch that gets this reply.
    Result<Data, Error> outcomeOf(test::Reply reply) {
        const auto service = makeService();
        fetch(*service);
        session->reply(std::move(reply));
        EXPECT_EQ(outcomes.size(), 1U);
        EXPECT_TRUE(allOnSession);
        if (outcomes.empty()) return Failure(Error(NSError("no outcome", 0)));
        return outcomes.front();
    }

    const std::shared_ptr<test::FakeSession> session = std::make_shared<test::FakeSession>();
    std::vector<Result<Data, Error>> outcomes;
    std::vector<Error> reported;
    bool allOnSession = true;
};

TEST_F(NetworkServicebleTest, AStatusBelow400WithABodyIsASuccess) {
    for (const std::int64_t status : {100, 200, 204, 301, 399}) {
        outcomes.clear();
        const Result<Data, Error> outcome = outcomeOf(test::answer(status, "body"));
        ASSERT_TRUE(outcome) << status;
        EXPECT_EQ(*outcome, Data("body"));
    }
    EXPECT_TRUE(reported.empty());
}

TEST_F(NetworkServicebleTest, AnEmptyBodyThatIsPresentIsASuccess) {
    const Result<Data, Error> outcome = outcomeOf(test::answer(204, ""));
    ASSERT_TRUE(outcome);
    EXPECT_TRUE(outcome->empty());
}

TEST_F(NetworkServicebleTest, AnAbsentBodyIsDataNotFoundAndReported) {
    const Result<Data, Error> outcome = outcomeOf(test::answer(204, std::nullopt));
    ASSERT_FALSE(outcome);
    const NetworkError& error = networkError(outcome.error());
    EXPECT_EQ(error.kind(), NetworkError::Kind::dataNotFoundInResponse);
    EXPECT_EQ(error.message(), "");
    EXPECT_EQ(error.response()->statusCode(), 204);
    ASSERT_EQ(reported.size(), 1U);
    EXPECT_EQ(networkError(reported[0]).kind(), NetworkError::Kind::dataNotFoundInResponse);
}

TEST_F(NetworkServicebleTest, AStatusOf400OrAboveIsAnHTTPErrorWithItsBody) {
    for (const std::int64_t status : {400, 404, 500, 599}) {
        outcomes.clear();
        reported.clear();
        const Result<Data, Error> outcome = outcomeOf(test::answer(status, "{\"why\":1}"));
        ASSERT_FALSE(outcome) << status;
        const NetworkError& error = networkError(outcome.error());
        EXPECT_EQ(error.kind(), NetworkError::Kind::httpError) << status;
        EXPECT_EQ(error.errorCode(), status);
        EXPECT_EQ(error.data(), Data("{\"why\":1}"));
        EXPECT_EQ(error.request(), timeRequest());
        ASSERT_EQ(reported.size(), 1U) << status;
        EXPECT_EQ(networkError(reported[0]).data(), Data("{\"why\":1}"));
    }
}

TEST_F(NetworkServicebleTest, TheReportedErrorIsASeparateObject) {
    const Result<Data, Error> outcome = outcomeOf(test::answer(400, std::nullopt));
    ASSERT_FALSE(outcome);
    ASSERT_EQ(reported.size(), 1U);
    EXPECT_FALSE(reported[0] == outcome.error());
    EXPECT_EQ(networkError(outcome.error()).kind(), NetworkError::Kind::httpError);
    EXPECT_EQ(networkError(outcome.error()).data(), std::nullopt);
}

TEST_F(NetworkServicebleTest, ATransportErrorTakesPrecedenceOverTheStatus) {
    const Result<Data, Error> outcome =
        outcomeOf(test::transportFailure(NSError("NSURLErrorDomain", -1001), test::httpResponse(500)));
    ASSERT_FALSE(outcome);
    const NetworkError& error = networkError(outcome.error());
    EXPECT_EQ(error.kind(), NetworkError::Kind::requestFailed);
    EXPECT_EQ(error.errorCode(), -1001);
    EXPECT_EQ(error.response(), nullptr);
    EXPECT_NE(error.heldResponse(), nullptr);
    EXPECT_EQ(reported.size(), 1U);
}

TEST_F(NetworkServicebleTest, AResponseThatIsNotHTTPIsNotReported) {
    const auto response = std::make_shared<const URLResponse>(test::url("file:///x"));
    const Result<Data, Error> outcome = outcomeOf({.data = Data("x"), .response = response});
    ASSERT_FALSE(outcome);
    const NetworkError& error = networkError(outcome.error());
    EXPECT_EQ(error.kind(), NetworkError::Kind::notAHTTPResponse);
    EXPECT_EQ(error.errorCode(), 3);
    EXPECT_EQ(error.message(),
              "Unable to cast to http responese for a http request, so unable to check http status codes");
    EXPECT_EQ(error.heldResponse(), response);
    EXPECT_TRUE(reported.empty());
}

TEST_F(NetworkServicebleTest, NoResponseAtAllIsNotAHTTPResponse) {
    const Result<Data, Error> outcome = outcomeOf({.data = Data("x")});
    ASSERT_FALSE(outcome);
    EXPECT_EQ(networkError(outcome.error()).kind(), NetworkError::Kind::notAHTTPResponse);
    EXPECT_EQ(networkError(outcome.error()).heldResponse(), nullptr);
    EXPECT_TRUE(reported.empty());
}

TEST_F(NetworkServicebleTest, AFetchFailsUnreportedIfItsServiceWasDestroyed) {
    auto service = makeService();
    fetch(*service);
    const std::weak_ptr<NetworkServiceble> weak = service;
    service.reset();
    EXPECT_TRUE(weak.expired()) << "a fetch does not keep the service alive";
    session->reply(test::answer(200, "body"));
    ASSERT_EQ(outcomes.size(), 1U);
    ASSERT_FALSE(outcomes[0]);
    const NetworkError& error = networkError(outcomes[0].error());
    EXPECT_EQ(error.kind(), NetworkError::Kind::internalSDKError);
    EXPECT_EQ(error.message(), "Lost reference to self when escaping closure for fetch returned");
    EXPECT_TRUE(reported.empty());
    EXPECT_EQ(test::activityCounter(), 0);
}

TEST_F(NetworkServicebleTest, TheRequestCanRunAnyNumberOfTimes) {
    const auto service = makeService();
    fetch(*service);
    fetch(*service);
    session->reply(test::answer(200, "1"));
    session->reply(test::answer(200, "2"));
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(*outcomes[1], Data("2"));
    EXPECT_EQ(session->requests(), (std::vector<URLRequest>{timeRequest(), timeRequest()}));
}

TEST_F(NetworkServicebleTest, WithoutAHookFailuresGoOnlyToTheCompletion) {
    const auto service =
        NetworkServiceble::make({.with = timeRequest(), .and_ = session, .logError = nullptr});
    fetch(*service);
    session->reply(test::answer(500, "x"));
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_FALSE(outcomes[0]);
}

TEST_F(NetworkServicebleTest, TheCounterFallsAfterTheCompletionHasReturned) {
    const auto service = makeService();
    std::int64_t during = 0;
    service->fetch({.with = [&during](Result<Data, Error>) { during = test::activityCounter(); }});
    EXPECT_EQ(test::activityCounter(), 1);
    session->reply(test::answer(500, "x"));
    EXPECT_EQ(during, 1);
    EXPECT_EQ(test::activityCounter(), 0);
}

TEST_F(NetworkServicebleTest, AURLMakesAPlainRequestOf60Seconds) {
    const auto service = NetworkServiceble::make(
        {.with = test::url("https://api.example.test/x"), .and_ = session, .logError = nullptr});
    EXPECT_EQ(service->urlRequest(), URLRequest(test::url("https://api.example.test/x")));
    EXPECT_EQ(service->urlRequest().timeoutInterval().count(), 60.0);
    EXPECT_TRUE(service->urlRequest().allHTTPHeaderFields().empty());
    EXPECT_EQ(service->session(), session);
}

TEST_F(NetworkServicebleTest, WithoutASessionTheSharedOneIsUsed) {
    const auto one = NetworkServiceble::make({.with = timeRequest(), .logError = nullptr});
    const auto other = NetworkServiceble::make({.with = timeRequest(), .logError = nullptr});
    ASSERT_NE(one->session(), nullptr);
    EXPECT_EQ(one->session(), other->session());
}

class NetworkServiceblePublisherTest : public NetworkServicebleTest {
protected:
    Cancellable subscribe(const AnyPublisher<Data>& publisher) {
        return publisher.sink([this](Data data) { values.push_back(std::move(data)); },
                              [this](Result<void, Error> result) {
                                  ends.push_back(std::move(result));
                                  allOnSession = allOnSession && session->queue().isCurrent();
                              });
    }

    std::vector<Data> values;
    std::vector<Result<void, Error>> ends;
};

TEST_F(NetworkServiceblePublisherTest, ASuccessIsOneValueAndANormalCompletion) {
    const Cancellable subscription = subscribe(makeService()->fetch());
    session->reply(test::answer(200, "body"));
    EXPECT_EQ(values, std::vector<Data>{Data("body")});
    ASSERT_EQ(ends.size(), 1U);
    EXPECT_TRUE(ends[0]);
    EXPECT_TRUE(allOnSession);
    EXPECT_EQ(test::activityCounter(), 0);
}

TEST_F(NetworkServiceblePublisherTest, ATransportErrorIsDeliveredUnchangedAndNotReported) {
    const Cancellable subscription = subscribe(makeService()->fetch());
    session->reply(test::transportFailure(NSError("NSURLErrorDomain", -1001)));
    ASSERT_EQ(ends.size(), 1U);
    ASSERT_FALSE(ends[0]);
    EXPECT_EQ(ends[0].error().as<NetworkError>(), nullptr);
    EXPECT_EQ(ends[0].error().domain(), "NSURLErrorDomain");
    EXPECT_TRUE(reported.empty());
    EXPECT_EQ(test::activityCounter(), 0) << "the counter falls once";
}

TEST_F(NetworkServiceblePublisherTest, AFailureStatusLowersTheCounterTwice) {
    bool visible = false;
    NetworkActivityCounter::setIndicator([&visible](bool shown) { visible = shown; });
    const Cancellable subscription = subscribe(makeService()->fetch());
    session->reply(test::answer(500, "x"));
    ASSERT_EQ(ends.size(), 1U);
    ASSERT_FALSE(ends[0]);
    EXPECT_EQ(networkError(ends[0].error()).errorCode(), 500);
    EXPECT_EQ(reported.size(), 1U);
    EXPECT_EQ(test::activityCounter(), -1);
    test::settleMainQueue();
    EXPECT_TRUE(visible) << "minus one keeps the indicator visible";
    NetworkActivityCounter::setIndicator(nullptr);
    test::zeroActivityCounter();
}

TEST_F(NetworkServiceblePublisherTest, TheCounterRisesWhenThePublisherIsMadeNotAtSubscription) {
    const AnyPublisher<Data> publisher = makeService()->fetch();
    EXPECT_EQ(test::activityCounter(), 1);
    EXPECT_TRUE(session->requests().empty()) << "nothing is sent before a subscription";
    const Cancellable subscription = subscribe(publisher);
    EXPECT_EQ(test::activityCounter(), 1);
    session->reply(test::answer(200, "x"));
    EXPECT_EQ(test::activityCounter(), 0);
}

TEST_F(NetworkServiceblePublisherTest, APublisherWithoutASubscriberNeverLowersTheCounter) {
    { const AnyPublisher<Data> publisher = makeService()->fetch(); }
    EXPECT_EQ(test::activityCounter(), 1);
    test::zeroActivityCounter();
}

TEST_F(NetworkServiceblePublisherTest, ASubscriptionCancelledBeforeTheAnswerNeverLowersTheCounter) {
    { const Cancellable subscription = subscribe(makeService()->fetch()); }
    EXPECT_TRUE(session->cancelled.wait());
    session->reply(test::answer(200, "x"));
    EXPECT_TRUE(values.empty());
    EXPECT_TRUE(ends.empty());
    EXPECT_EQ(test::activityCounter(), 1);
    test::zeroActivityCounter();
}

TEST_F(NetworkServiceblePublisherTest, ThePublisherKeepsTheServiceAlive) {
    const AnyPublisher<Data> publisher = makeService()->fetch();
    const Cancellable subscription = subscribe(publisher);
    session->reply(test::answer(200, "body"));
    EXPECT_EQ(values.size(), 1U);
}

TEST_F(NetworkServiceblePublisherTest, EverySubscriptionStartsItsOwnTransfer) {
    const AnyPublisher<Data> publisher = makeService()->fetch();
    const Cancellable one = subscribe(publisher);
    const Cancellable other = subscribe(publisher);
    session->reply(test::answer(200, "1"));
    session->reply(test::answer(200, "2"));
    EXPECT_EQ(values, (std::vector<Data>{Data("1"), Data("2")}));
    EXPECT_EQ(session->requests().size(), 2U);
    test::zeroActivityCounter();
}

}  // namespace
}  // namespace VanticRestKit
