// A host's context with retries, over real sockets.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/ObservableContext.h>
#include <VanticRestKit/Core/RequestObserver.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

/// The route of the tests.
struct Time {
    std::string path() const { return "/v2/time"; }
};

class RetryingContext : public virtual Context {
public:
    explicit RetryingContext(const std::string& base) : base_(*URL::make(base)) {}

    URL baseURL() const override { return base_; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        const URLRequest request = arguments.withURLRequest;
        const auto service = NetworkServiceble::make(
            {.with = request, .and_ = session, .logError = [count = failures](const Error&) { ++*count; }});
        return retrying({.service = service, .request = request, .policy = policy});
    }

    std::shared_ptr<NetworkSession> session =
        networkSession(URLSession::make(URLSessionConfiguration::default_()));
    RetryPolicy policy{.firstPause = 1ms};
    // A dropped load may report a failure after this context is destroyed.
    const std::shared_ptr<std::atomic<int>> failures = std::make_shared<std::atomic<int>>(0);

private:
    URL base_;
};

/// Records the attempt numbers. Read them after the load has ended.
class AttemptObserver final : public RequestObserver {
public:
    void requestEnded(const RequestMetrics& metrics) override { attempts.push_back(metrics.attempt); }

    std::vector<std::int64_t> attempts;
};

class ObservedRetryingContext final : public RetryingContext, public ObservableContext {
public:
    using RetryingContext::RetryingContext;
    std::shared_ptr<RequestObserver> observer() const override { return attempts; }

    const std::shared_ptr<AttemptObserver> attempts = std::make_shared<AttemptObserver>();
};

/// Fails the first `count` requests of a server with a 503.
FaultServer::Script failing(std::atomic<int>& count) {
    return [&count](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.send(count-- > 0 ? answer(503, "{}") : answer(200, "12.5"));
        }
    };
}

class RetryingOverSockets : public testing::Test {
protected:
    std::atomic<int> failuresToCome{0};
    FaultServer server{failing(failuresToCome)};
    RetryingContext context{server.url("")};

    Resource<double> resource() const { return *Resource<double>::make({.with = Time()}, context); }
};

}  // namespace

TEST_F(RetryingOverSockets, ALoadSucceedsAfterTwoFailures) {
    failuresToCome = 2;
    const auto loaded = resource();
    const Event ended;
    double seen = 0;
    loaded.load({.with = [&seen, ended](Result<double, LoaderError> result) {
        if (result) seen = *result;
        ended.signal();
    }});
    ASSERT_TRUE(ended.wait());
    EXPECT_EQ(seen, 12.5);
    EXPECT_EQ(server.requests().size(), 3u);
    EXPECT_EQ(*context.failures, 2);
}

TEST_F(RetryingOverSockets, APublisherAndABlockingLoadSucceedAfterAFailure) {
    const auto loaded = resource();
    failuresToCome = 1;
    EXPECT_TRUE(loaded.wait());
    failuresToCome = 1;
    const Event ended;
    double seen = 0;
    const Cancellable subscription = loaded.resourceLoader().sink(
        [&seen](double value) { seen = value; }, [ended](const Result<void, Error>&) { ended.signal(); });
    ASSERT_TRUE(ended.wait());
    EXPECT_EQ(seen, 12.5);
    EXPECT_EQ(server.requests().size(), 4u);
}

TEST_F(RetryingOverSockets, AnObserverSeesEachAttemptWithItsNumber) {
    failuresToCome = 2;
    const ObservedRetryingContext observed(server.url(""));
    EXPECT_TRUE(Resource<double>::make({.with = Time()}, observed)->wait());
    EXPECT_EQ(observed.attempts->attempts, (std::vector<std::int64_t>{1, 2, 3}));
}

TEST_F(RetryingOverSockets, AServiceThatStaysDownFailsWithItsResponse) {
    failuresToCome = 100;
    const auto result = resource().wait();
    ASSERT_FALSE(result);
    EXPECT_EQ(categoryOf(result.error()), ErrorCategory::serverFailed);
    EXPECT_EQ(server.requests().size(), 3u);
}

TEST_F(RetryingOverSockets, TheBudgetLimitsARetryStorm) {
    failuresToCome = 1000;
    context.policy.budget = std::make_shared<RetryBudget>(0.1, 5);
    for (int i = 0; i < 20; ++i) EXPECT_FALSE(resource().wait());
    // Twenty first attempts, of which ten pay for one retry, plus the reserve.
    EXPECT_GE(server.requests().size(), 25u);
    EXPECT_LE(server.requests().size(), 27u);
}

TEST_F(RetryingOverSockets, ADeadlineAndACancelEndAPauseAtOnce) {
    failuresToCome = 100;
    context.policy.firstPause = 1h;
    context.policy.maxPause = 2h;
    const auto loaded = resource();
    EXPECT_EQ(categoryOf(loaded.wait({.deadline = 200ms}).error()), ErrorCategory::timedOut);

    const Event ended;
    ErrorCategory category = ErrorCategory::unknown;
    const Cancellable load = loaded.start({}, [&category, ended](Result<double, LoaderError> result) {
        category = categoryOf(result.error());
        ended.signal();
    });
    ASSERT_TRUE(server.waitForRequests(2));
    load.cancel();
    ASSERT_TRUE(ended.wait());
    EXPECT_EQ(category, ErrorCategory::cancelled);
}

TEST_F(RetryingOverSockets, LoadsDroppedAtAnyTimeDeliverNothing) {
    failuresToCome = 100000;
    context.policy = {.attempts = 1000000, .firstPause = 0ms, .budget = nullptr};
    const auto loaded = resource();
    const Event delivered;
    for (int i = 0; i < 50; ++i) {
        const std::size_t sent = server.requests().size();
        const Cancellable load =
            loaded.start({}, [delivered](const Result<double, LoaderError>&) { delivered.signal(); });
        if (i % 2 == 0) {
            ASSERT_TRUE(server.waitForRequests(sent + 2));
        }
    }
    EXPECT_EQ(delivered.count(), 0);
}
