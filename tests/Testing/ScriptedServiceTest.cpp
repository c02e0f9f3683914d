#include <gtest/gtest.h>
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/ManualClock.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/Testing/ScriptedService.h>

#include <cstdio>
#include <fstream>
#include <thread>
#include <vector>

namespace VanticRestKit::Testing {
namespace {

using namespace std::chrono_literals;
using Outcome = Result<Video, LoaderError>;

constexpr const char* video = R"({"title":"A","_links":{"self":{"href":"/video/1"}}})";

/// A script, and loads that run entirely on the test's thread.
class ScriptedServiceTest : public ::testing::Test {
protected:
    Cancellable load(const std::string& houseNumber, LoadOptions options = {}) {
        const auto resource = Endpoint::Video({.houseNumber = houseNumber}, context);
        return resource->start(std::move(options), [this](Outcome outcome) {
            EXPECT_EQ(std::this_thread::get_id(), thread);
            outcomes.push_back(std::move(outcome));
        });
    }

    /// The error of the only outcome so far, which must be a failed request.
    NetworkError failure() {
        EXPECT_EQ(outcomes.size(), 1U);
        const NetworkError* error = outcomes.empty() || outcomes.front()
                                        ? nullptr
                                        : outcomes.front().error().underlyingError()->as<NetworkError>();
        EXPECT_NE(error, nullptr);
        return error != nullptr ? *error : NetworkError::internalSDKError("none");
    }

    const std::thread::id thread = std::this_thread::get_id();
    ManualExecutor executor;
    ScriptedService service{executor};
    Scripted<TestContext> context{service};
    std::vector<Outcome> outcomes;
};

TEST_F(ScriptedServiceTest, AnswersByPathOnTheTestsThread) {
    service.on("GET /v2/video/1").answer(video);
    const auto one = load("1");
    EXPECT_TRUE(outcomes.empty()) << "nothing is delivered before the executor runs";
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 1U);
    ASSERT_TRUE(outcomes.front());
    EXPECT_EQ(outcomes.front()->title, "A");
    EXPECT_EQ(service.problems(), "");
}

TEST_F(ScriptedServiceTest, UsesTheAnswersOfARuleInTurnAndRepeatsTheLast) {
    service.on("/v2/video/*").answer(Answer::status(500)).answer(video);
    for (int i = 0; i < 3; ++i) load("1").detach();
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 3U);
    EXPECT_FALSE(outcomes[0]);
    EXPECT_TRUE(outcomes[1]);
    EXPECT_TRUE(outcomes[2]);
}

TEST_F(ScriptedServiceTest, AnswersRequestsWithoutARuleInOrder) {
    service.on("/v2/video/2").answer(R"({"title":"by rule","_links":{"self":{"href":"/video/2"}}})");
    service.answerNext(video);
    service.answerNext(Answer::status(404));
    for (const char* number : {"1", "2", "3"}) load(number).detach();
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 3U);
    EXPECT_EQ(outcomes[0]->title, "A");
    EXPECT_EQ(outcomes[1]->title, "by rule");
    EXPECT_FALSE(outcomes[2]);
    EXPECT_EQ(service.problems(), "");
}

TEST_F(ScriptedServiceTest, StatusesAndHeadersAreHandledAsFromTheNetwork) {
    service.on("/v2/video/1")
        .answer(Answer(R"({"why":"busy"})").withStatus(503).withHeader("Retry-After", "5"));
    const auto one = load("1");
    executor.runAll();
    const NetworkError error = failure();
    EXPECT_EQ(error.kind(), NetworkError::Kind::httpError);
    ASSERT_NE(error.response(), nullptr);
    EXPECT_EQ(error.response()->statusCode(), 503);
    EXPECT_EQ(error.response()->value("retry-after"), "5");
    EXPECT_EQ(error.data()->view(), R"({"why":"busy"})");
}

TEST_F(ScriptedServiceTest, TransportErrorsLookLikeThoseOfTheTransport) {
    service.on("/v2/video/1").answer(Answer::timedOut());
    const auto one = load("1");
    executor.runAll();
    const NetworkError error = failure();
    EXPECT_EQ(error.kind(), NetworkError::Kind::requestFailed);
    ASSERT_NE(error.transportError(), nullptr);
    EXPECT_EQ(error.transportError()->domain(), NSURLErrorDomain);
    EXPECT_EQ(error.transportError()->code(), static_cast<std::int64_t>(URLErrorCode::timedOut));
    EXPECT_EQ(error.transportError()->userInfo().text(NSURLErrorFailingURLStringErrorKey),
              "https://service.test/v2/video/1");
    EXPECT_FALSE(error.transportError()->localizedDescription().empty());
}

TEST_F(ScriptedServiceTest, ErrorsOfTheTestArriveUnchanged) {
    const Error own = NSError("host.tests", 42);
    service.on("/v2/video/1").answer(Answer::error(own));
    const auto one = load("1");
    executor.runAll();
    EXPECT_EQ(failure().underlyingError(), own);
}

TEST_F(ScriptedServiceTest, HoldsAnAnswerUntilTheTestReleasesIt) {
    service.on("/v2/video/*").answer(Answer(video).held());
    const auto one = load("1");
    const auto two = load("2");
    executor.runAll();
    EXPECT_TRUE(outcomes.empty());
    EXPECT_EQ(service.openRequests(), 2U);
    EXPECT_TRUE(service.answerNow("/v2/video/2", Answer::offline()));
    executor.runAll();
    EXPECT_EQ(failure().transportError()->code(), static_cast<std::int64_t>(URLErrorCode::cannotFindHost));
    EXPECT_FALSE(service.answerNow("/v2/video/2")) << "it is not held any more";
    EXPECT_TRUE(service.answerNow());
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_TRUE(outcomes[1]);
    EXPECT_EQ(service.openRequests(), 0U);
}

TEST_F(ScriptedServiceTest, DelaysAndDeadlinesFollowTheManualClock) {
    ManualClock clock;
    service.on("/v2/video/1").answer(Answer(video).after(3s));
    const auto patient = load("1", {.deadline = 5s});
    const auto hasty = load("1", {.deadline = 2s});
    clock.advance(2s);
    executor.runAll();
    EXPECT_EQ(failure().transportError()->code(), static_cast<std::int64_t>(URLErrorCode::timedOut));
    EXPECT_TRUE(service.asked()[1].wasCancelled);
    clock.advance(1s);
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_TRUE(outcomes[1]);
}

TEST_F(ScriptedServiceTest, ACancelledLoadCancelsItsRequest) {
    service.holdAll();
    const auto one = load("1");
    one.cancel();
    executor.runAll();
    EXPECT_EQ(failure().transportError()->code(), static_cast<std::int64_t>(URLErrorCode::cancelled));
    EXPECT_TRUE(service.asked().front().wasCancelled);
    EXPECT_EQ(service.openRequests(), 0U);
}

TEST_F(ScriptedServiceTest, AnswersWithAFile) {
    const std::string path = ::testing::TempDir() + "kit-video.json";
    std::ofstream(path) << video;
    service.on("/v2/video/1").answer(Answer::file(path));
    service.on("/v2/video/2").answer(Answer::file(path + ".missing"));
    load("1").detach();
    load("2").detach();
    executor.runAll();
    std::remove(path.c_str());
    ASSERT_EQ(outcomes.size(), 2U);
    ASSERT_TRUE(outcomes[0]);
    EXPECT_EQ(outcomes[0]->title, "A");
    ASSERT_FALSE(outcomes[1]);
    const auto* error = outcomes[1].error().underlyingError()->as<NetworkError>();
    EXPECT_EQ(error->underlyingError()->localizedDescription(),
              "The file " + path + ".missing cannot be read");
}

TEST_F(ScriptedServiceTest, RecordsItsRequests) {
    service.on("**");
    const auto one = Resource<Video>::make(
        {.withHrefURI = HrefURI({.withHref = "video/1", .andQueryItems = {{"a", "b"}}})}, context);
    one->start({}, [](Outcome) {}).detach();
    ASSERT_EQ(service.asked().size(), 1U);
    EXPECT_EQ(service.asked().front().query(), "a=b");
    EXPECT_EQ(service.asked().front().method(), "GET");
    EXPECT_EQ(service.asked().front().body(), "");
    EXPECT_EQ(service.countOf("/**?a=b"), 1U);
    EXPECT_EQ(service.countOf("POST /**"), 0U);
}

TEST_F(ScriptedServiceTest, AnUnmetExpectationReportsTheNearestRequest) {
    service.expect("GET /v2/video/ZW1").answer(video);
    service.on("/v2/time");
    load("ZX1").detach();
    EXPECT_EQ(service.problems(),
              "expected once: GET /v2/video/ZW1\n"
              "    received never\n"
              "    closest request: GET /v2/video/ZX1 (the path has \"ZX1\" instead of \"ZW1\")\n"
              "not scripted: GET /v2/video/ZX1\n"
              "    closest rule: GET /v2/video/ZW1 (the path has \"ZX1\" instead of \"ZW1\")\n");
    executor.runAll();
    EXPECT_EQ(failure().underlyingError()->localizedDescription(),
              "Nothing is scripted for GET /v2/video/ZX1");
}

TEST_F(ScriptedServiceTest, AnUnexpectedRequestIsAProblem) {
    service.expect("/v2/video/1").answer(video);
    service.on("/v2/video/2").never();
    load("1").detach();
    load("1").detach();
    load("2").detach();
    EXPECT_EQ(service.problems(),
              "not scripted: GET /v2/video/1\n    closest rule: /v2/video/1 (it expects once)\n"
              "not scripted: GET /v2/video/2\n    closest rule: /v2/video/2 (it expects never)\n");
}

TEST_F(ScriptedServiceTest, AnUnmetExpectationReportsThatNoRequestCame) {
    service.on("/v2/time").atLeastOnce();
    service.answerNext(video);
    EXPECT_EQ(service.problems(),
              "expected at least once: /v2/time\n    received never\n    no request was received\n"
              "unused answers of answerNext: 1\n");
}

TEST_F(ScriptedServiceTest, AnExpectationStatesHowManyRequestsCame) {
    service.on("/v2/video/1").times(3).answer(video);
    service.on("/v2/video/2").times(2).answer(video);
    for (const char* number : {"1", "1", "2"}) load(number).detach();
    EXPECT_EQ(service.problems(),
              "expected 3 times: /v2/video/1\n"
              "    received 2 times\n"
              "    closest request: GET /v2/video/2 (the path has \"2\" instead of \"1\")\n"
              "expected 2 times: /v2/video/2\n"
              "    received once\n"
              "    closest request: GET /v2/video/1 (the path has \"1\" instead of \"2\")\n");
}

TEST_F(ScriptedServiceTest, AnUnmetExpectationReportsNoOtherRequestIfThereIsNone) {
    service.on("/v2/video/1").times(2).answer(video);
    load("1").detach();
    EXPECT_EQ(service.problems(), "expected 2 times: /v2/video/1\n    received once\n");
}

TEST_F(ScriptedServiceTest, OnceExpectsExactlyOneRequest) {
    service.on("/v2/video/1").once().answer(video);
    EXPECT_EQ(service.problems(),
              "expected once: /v2/video/1\n    received never\n    no request was received\n");
    load("1").detach();
    EXPECT_EQ(service.problems(), "");
    load("1").detach();
    EXPECT_EQ(service.problems(),
              "not scripted: GET /v2/video/1\n    closest rule: /v2/video/1 (it expects once)\n");
}

TEST_F(ScriptedServiceTest, AnUnmetExpectationReportsTheClosestOfSeveralRequests) {
    service.expect("/v2/video/ZW1");
    for (const char* number : {"AB9", "ZX1", "XX1"}) load(number).detach();
    EXPECT_NE(service.problems().find("    closest request: GET /v2/video/ZX1 ("), std::string::npos)
        << service.problems();
}

TEST_F(ScriptedServiceTest, ARequestToAServiceWithoutRulesIsAProblem) {
    load("1").detach();
    EXPECT_EQ(service.problems(), "not scripted: GET /v2/video/1\n    there are no rules\n");
}

TEST_F(ScriptedServiceTest, PublishersCanBeAnsweredAndCancelled) {
    service.on("/v2/video/1").answer(video);
    service.on("/v2/video/2").answer(Answer(video).held());
    std::string title;
    const auto one = Endpoint::Video({.houseNumber = "1"}, context);
    const auto two = Endpoint::Video({.houseNumber = "2"}, context);
    auto first = one->resourceLoader().sink([&](Video value) { title = value.title.value_or(""); });
    auto second = two->resourceLoader().sink([&](Video) { ADD_FAILURE() << "was cancelled"; });
    second.cancel();
    EXPECT_FALSE(service.answerNow());
    executor.runAll();
    EXPECT_EQ(title, "A");
}

TEST_F(ScriptedServiceTest, LoadsStartedOnTheLibrarysQueuesEndOnTheTestsThread) {
    service.on("/v2/video/1").answer(video);
    const auto one = Endpoint::Video({.houseNumber = "1"}, context);
    one->load({.with = [this](Outcome outcome) {
        EXPECT_EQ(std::this_thread::get_id(), thread);
        outcomes.push_back(std::move(outcome));
    }});
    EXPECT_TRUE(executor.runUntil([this] { return !outcomes.empty(); }));
    EXPECT_TRUE(outcomes.front());
}

TEST(ScriptedServiceOnItsOwnThreadTest, AnswersCodeThatWaits) {
    ScriptedService service;
    service.on("/v2/video/1").answer(video);
    const Scripted<TestContext> context(service);
    const auto one = Endpoint::Video({.houseNumber = "1"}, context);
    EXPECT_TRUE(one->wait({.deadline = 30s}));
}

TEST(ScriptedServiceOnItsOwnThreadTest, DropsOpenRequestsWhenDestroyed) {
    const auto held = std::make_shared<int>();
    ManualExecutor executor;
    {
        ScriptedService service(executor);
        service.holdAll();
        const Scripted<TestContext> context(service);
        const auto one = Endpoint::Video({.houseNumber = "1"}, context);
        one->start({}, [held](Outcome) { ADD_FAILURE() << "was dropped"; }).detach();
    }
    executor.runAll();
    EXPECT_EQ(held.use_count(), 1);
}

/// Starts a transfer whose completion must not be called, and which owns `held`.
Cancellable startDropped(const std::shared_ptr<NetworkSession>& session, const std::shared_ptr<int>& held) {
    return session->start(
        {.fromURLRequest = URLRequest(URL("https://service.test/v2/video/1")),
         .completionHandler = [held](auto, auto, auto) { ADD_FAILURE() << "was dropped"; }});
}

TEST(ScriptedServiceOnItsOwnThreadTest, DropsLaterRequestsWhenDestroyed) {
    const auto held = std::make_shared<int>();
    ManualExecutor executor;
    std::shared_ptr<NetworkSession> session;
    {
        const ScriptedService service(executor);
        service.answerNext(video);
        session = service.session();
    }
    startDropped(session, held).detach();
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(executor.runAll(), 0U);
}

TEST(ScriptedServiceOnItsOwnThreadTest, CancellingARequestOfADestroyedServiceDoesNothing) {
    const auto held = std::make_shared<int>();
    ManualExecutor executor;
    Cancellable transfer;
    {
        const ScriptedService service(executor);
        service.holdAll();
        transfer = startDropped(service.session(), held);
    }
    EXPECT_EQ(held.use_count(), 1);
    transfer.cancel();
    EXPECT_EQ(executor.runAll(), 0U);
}

}  // namespace
}  // namespace VanticRestKit::Testing
