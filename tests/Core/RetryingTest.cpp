#include <gtest/gtest.h>
#include <VanticRestKit/Core/Loader.h>
#include <VanticRestKit/Core/Retrying.h>

#include <Core/ScriptedService.h>

namespace VanticRestKit {
namespace {

using test::statusError;
using Lengths = std::vector<double>;

class Retrying : public testing::Test {
protected:
    std::shared_ptr<Serviceable> decorated(const std::string& method = "GET") {
        return retrying({.service = service, .request = test::requestOf(method), .policy = policy});
    }
    void script(std::initializer_list<std::int64_t> statuses) {
        for (const std::int64_t status : statuses) {
            if (status == 200) {
                service->script.emplace_back(Data("body"));
            } else {
                service->script.emplace_back(Failure(statusError(status)));
            }
        }
    }
    Serviceable::Completion seen() {
        return [this](const Result<Data, Error>& outcome) { note(outcome); };
    }
    void note(const Result<Data, Error>& outcome) {
        outcomes.push_back(outcome ? std::string(outcome->view()) : std::to_string(outcome.error().code()));
    }
    /// Ends all pauses.
    void passAll() {
        while (pauses.pass()) {
        }
    }

    std::shared_ptr<test::ScriptedService> service = std::make_shared<test::ScriptedService>();
    test::ManualPauses pauses;
    RetryPolicy policy{.environment = pauses.environment()};
    std::vector<std::string> outcomes;
};

TEST_F(Retrying, ASuccessIsDeliveredWithoutARetry) {
    script({200});
    decorated()->fetch({.with = seen()});
    EXPECT_EQ(outcomes, (std::vector<std::string>{"body"}));
    EXPECT_EQ(pauses.waiting(), 0u);
}

TEST_F(Retrying, ATemporaryFailureIsRetriedAfterAPause) {
    script({503, 200});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    EXPECT_EQ(service->forms.size(), 1u);
    EXPECT_TRUE(outcomes.empty());
    EXPECT_TRUE(pauses.pass());
    EXPECT_EQ(outcomes, (std::vector<std::string>{"body"}));
}

TEST_F(Retrying, TheLastFailureIsDeliveredUnchanged) {
    script({503, 500, 504, 200});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(outcomes, (std::vector<std::string>{"504"}));
    EXPECT_EQ(service->forms.size(), 3u);
}

TEST_F(Retrying, APermanentFailureIsNotRetried) {
    script({404, 200});
    decorated()->fetch({.with = seen()});
    EXPECT_EQ(outcomes, (std::vector<std::string>{"404"}));
    EXPECT_EQ(pauses.waiting(), 0u);
}

TEST_F(Retrying, EachFormIsRetriedInTheSameForm) {
    policy.attempts = 2;
    const auto retried = decorated();
    script({503, 200, 503, 200, 503, 200});
    retried->fetch({.with = seen()});
    passAll();
    const Cancellable load = retried->start({.with = seen()});
    passAll();
    EXPECT_EQ(service->cancels, 0);
    const Cancellable subscription = retried->fetch().sink(
        [this](const Data& body) { outcomes.emplace_back(body.view()); },
        [this](const Result<void, Error>& end) { outcomes.push_back(end ? "end" : "error"); });
    passAll();
    EXPECT_EQ(service->forms,
              (std::vector<std::string>{"fetch", "fetch", "start", "start", "publisher", "publisher"}));
    EXPECT_EQ(outcomes, (std::vector<std::string>{"body", "body", "body", "end"}));
}

TEST_F(Retrying, APublisherRetriesSeparatelyForEachSubscription) {
    policy.attempts = 2;
    const AnyPublisher<Data> publisher = decorated()->fetch();
    EXPECT_TRUE(service->forms.empty());
    for (int i = 0; i < 2; ++i) {
        script({503, 500});
        const Cancellable subscription = publisher.sink({}, [this](const Result<void, Error>& end) {
            outcomes.push_back(std::to_string(end.error().code()));
        });
        passAll();
    }
    EXPECT_EQ(outcomes, (std::vector<std::string>{"500", "500"}));
    EXPECT_EQ(service->forms.size(), 4u);
}

TEST_F(Retrying, OnlySafeMethodsAreRetriedByDefault) {
    EXPECT_NE(decorated("GET"), service);
    EXPECT_NE(decorated("HEAD"), service);
    for (const char* method : {"PUT", "DELETE", "POST", "PATCH", "get"})
        EXPECT_EQ(decorated(method), service);
}

TEST_F(Retrying, PutAndDeleteAreRetriedIfThePolicyAllowsIt) {
    policy.repeatsPutAndDelete = true;
    EXPECT_NE(decorated("PUT"), service);
    EXPECT_NE(decorated("DELETE"), service);
    EXPECT_EQ(decorated("POST"), service);
}

TEST_F(Retrying, APolicyOfOneAttemptDoesNotDecorateTheService) {
    policy.attempts = 1;
    EXPECT_EQ(decorated(), service);
}

TEST_F(Retrying, PausesDoubleUpToTheMaximum) {
    policy.attempts = 6;
    policy.maxPause = std::chrono::seconds(3);
    script({503, 503, 503, 503, 503, 503});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(pauses.lengths, (Lengths{0.25, 0.5, 1, 1.5, 1.5}));
}

TEST_F(Retrying, ThePauseIsRandomBetweenHalfAndItsFullLength) {
    pauses.random = 0.5;
    script({503, 503, 503});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(pauses.lengths, (Lengths{0.375, 0.75}));
}

TEST_F(Retrying, APauseIsAtLeastAsLongAsTheServiceAsks) {
    service->script.emplace_back(Failure(statusError(429, {{"Retry-After", "7"}})));
    service->script.emplace_back(
        Failure(statusError(503, {{"Retry-After", "Thu, 01 Jan 1970 00:00:10 GMT"}})));
    pauses.now = Date(std::chrono::seconds(1));
    pauses.random = 0.5;
    script({200});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(pauses.lengths, (Lengths{7.25, 9.25}));
    EXPECT_EQ(outcomes, (std::vector<std::string>{"body"}));
}

TEST_F(Retrying, ATooLongRetryAfterEndsTheRetries) {
    service->script.emplace_back(Failure(statusError(503, {{"Retry-After", "31"}})));
    decorated()->fetch({.with = seen()});
    EXPECT_EQ(outcomes, (std::vector<std::string>{"503"}));
}

TEST_F(Retrying, TheJitterAfterARetryAfterStaysWithinTheMaximumPause) {
    pauses.random = 0.9;
    service->script.emplace_back(Failure(statusError(503, {{"Retry-After", "30"}})));
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    EXPECT_EQ(pauses.lengths, (Lengths{30}));
}

TEST_F(Retrying, CopiesOfAPolicyShareItsBudget) {
    policy.budget = std::make_shared<RetryBudget>(0, 1);
    script({503, 503, 503});
    const auto first = decorated();
    const auto second = decorated();
    first->fetch({.with = seen()});
    second->fetch({.with = seen()});
    EXPECT_EQ(outcomes, (std::vector<std::string>{"503"}));
    EXPECT_EQ(pauses.waiting(), 1u);
    passAll();
    EXPECT_EQ(outcomes, (std::vector<std::string>{"503", "503"}));
}

TEST_F(Retrying, FirstAttemptsFillTheBudgetAndRetriesDoNot) {
    policy.budget = std::make_shared<RetryBudget>(0.5, 2);
    while (policy.budget->withdraw()) {
    }
    script({200, 200});
    decorated()->fetch({.with = seen()});
    decorated()->fetch({.with = seen()});
    EXPECT_EQ(policy.budget->balance(), 1);
    script({503, 503});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(policy.budget->balance(), 0.5);
}

TEST_F(Retrying, AFailureThatIsNotRetriedDoesNotUseTheBudget) {
    policy.budget = std::make_shared<RetryBudget>(0, 1);
    script({404});
    decorated()->fetch({.with = seen()});
    EXPECT_EQ(policy.budget->balance(), 1);
}

TEST_F(Retrying, WithoutABudgetOnlyTheNumberOfAttemptsLimitsRetries) {
    policy.budget = nullptr;
    policy.attempts = 20;
    for (int i = 0; i < 20; ++i) script({503});
    const auto retried = decorated();
    retried->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(service->forms.size(), 20u);
    EXPECT_EQ(outcomes, (std::vector<std::string>{"503"}));
}

TEST_F(Retrying, ACancelDuringAPauseEndsTheLoadAtOnce) {
    script({503});
    const auto retried = decorated();
    const Cancellable load = retried->start({.with = seen()});
    EXPECT_EQ(pauses.waiting(), 1u);
    load.cancel();
    EXPECT_EQ(pauses.waiting(), 0u);
    EXPECT_TRUE(outcomes.empty());
    EXPECT_EQ(service->forms.size(), 1u);
}

TEST_F(Retrying, ACancelDuringAnAttemptReachesTheService) {
    script({503});
    const auto retried = decorated();
    const Cancellable load = retried->start({.with = seen()});
    pauses.pass();
    load.cancel();
    EXPECT_EQ(service->cancels, 1);
    service->answer(Data("late"));
    EXPECT_TRUE(outcomes.empty());
}

TEST_F(Retrying, AFailureAfterACancelStartsNoPause) {
    const auto retried = decorated();
    const Cancellable load = retried->start({.with = seen()});
    load.cancel();
    service->answer(Failure(statusError(503)));
    EXPECT_EQ(pauses.waiting(), 0u);
    EXPECT_TRUE(outcomes.empty());
}

TEST_F(Retrying, ACancelWhileARetryIsBeingStartedReachesTheService) {
    script({503});
    const auto retried = decorated();
    Cancellable load;
    load = retried->start({.with = seen(), .metrics = [&](const RequestMetrics& record) {
                               if (record.attempt == 2) load.cancel();
                           }});
    EXPECT_TRUE(pauses.pass());
    EXPECT_EQ(service->forms.size(), 2u);
    EXPECT_EQ(service->cancels, 1);
    service->answer(Data("late"));
    EXPECT_TRUE(outcomes.empty());
}

TEST_F(Retrying, ASubscriptionCancelledDuringAPauseEndsAtOnce) {
    script({503});
    {
        const Cancellable subscription = decorated()->fetch().sink([](const Data&) {});
        EXPECT_EQ(pauses.waiting(), 1u);
    }
    EXPECT_EQ(pauses.waiting(), 0u);
}

TEST_F(Retrying, ADetachedLoadContinues) {
    script({503, 200});
    const auto retried = decorated();
    retried->start({.with = seen()}).detach();
    passAll();
    EXPECT_EQ(outcomes, (std::vector<std::string>{"body"}));
}

TEST_F(Retrying, AStartKeepsTheServiceAliveUntilItsOutcome) {
    script({503, 200});
    const Cancellable load = decorated()->start({.with = seen()});
    passAll();
    EXPECT_EQ(outcomes, (std::vector<std::string>{"body"}));
}

TEST_F(Retrying, AFetchWhoseServiceWasDestroyedEndsWithItsLastFailure) {
    script({503, 200});
    decorated()->fetch({.with = seen()});
    passAll();
    EXPECT_EQ(outcomes, (std::vector<std::string>{"503"}));
    EXPECT_EQ(service->forms.size(), 1u);
}

TEST_F(Retrying, TheQueueAndEarlyEndsComeFromTheService) {
    const auto retried = decorated();
    EXPECT_EQ(retried->deliveryQueue(), service->queue);
    EXPECT_EQ(retried->endedEarly(URLErrorCode::timedOut).domain(), "early");
    EXPECT_EQ(retried->endedEarly(URLErrorCode::timedOut).code(), -1001);
}

TEST_F(Retrying, TheMetricsOfEachAttemptHaveItsNumberInEachForm) {
    std::vector<std::int64_t> attempts;
    const MetricsReceiver metrics = [&attempts](const RequestMetrics& record) {
        attempts.push_back(record.attempt);
    };
    script({503, 503, 200, 503, 200, 503, 200});
    const auto retried = decorated();
    retried->fetch({.with = seen(), .metrics = metrics});
    passAll();
    EXPECT_EQ(attempts, (std::vector<std::int64_t>{1, 2, 3}));
    attempts.clear();
    const Cancellable load = retried->start({.with = seen(), .metrics = metrics});
    passAll();
    EXPECT_EQ(attempts, (std::vector<std::int64_t>{1, 2}));
    attempts.clear();
    const Cancellable subscription = retried->publisher(metrics).sink([](const Data&) {});
    passAll();
    EXPECT_EQ(attempts, (std::vector<std::int64_t>{1, 2}));
}

TEST_F(Retrying, ACompletionIsReleasedOnceItWasCalledOrCancelled) {
    const auto held = std::make_shared<int>(0);
    script({503});
    const auto retried = decorated();
    Cancellable load = retried->start({.with = [held](const Result<Data, Error>&) {}});
    EXPECT_EQ(held.use_count(), 2);
    load.cancel();
    EXPECT_EQ(held.use_count(), 1);
    script({503, 200});
    load = retried->start({.with = [held](const Result<Data, Error>&) {}});
    passAll();
    EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace VanticRestKit
