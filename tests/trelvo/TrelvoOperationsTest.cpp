// Rules that hold for every operation on user data, tested with each of them.

#include <trelvo/Client.h>
#include <trelvo/Operations.h>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;

class TrelvoOperation : public Client, public ::testing::WithParamInterface<Operation> {
protected:
    const Operation& operation() const { return GetParam(); }
    /// Runs the operation on this thread. It must not block.
    void run() { operation().run(*trelvo, context, outcomes.completed()); }
    /// Answers the first request with `reply` and returns the outcome of the operation.
    Outcome outcomeOf(Reply reply) {
        run();
        session->answer(0, std::move(reply));
        return outcomes.only();
    }
    /// A response with the data that the operation needs, and rotated tokens.
    std::string goodBody() const {
        const std::string data = operation().good.empty() ? "" : operation().good + ",";
        return "{" + data + authMember("rotated", 3000) + "}";
    }
};

INSTANTIATE_TEST_SUITE_P(Every, TrelvoOperation, ::testing::ValuesIn(operations()),
                         [](const auto& each) { return each.param.name; });

TEST_P(TrelvoOperation, SendsOnlyItsRequestWithTheAccessToken) {
    saveGoodTokens();
    context.timeout = 12.5;
    context.headers = {{"X-Host", "1"}};
    run();
    const URLRequest request = session->request(0);
    EXPECT_EQ(sent(0), operation().method + " " + operation().target + " Bearer access-good");
    EXPECT_EQ(request.allHTTPHeaderFields(),
              (std::map<std::string, std::string>{{"X-Host", "1"},
                                                  {"Authorization", "Bearer access-good"},
                                                  {"Content-Type", "application/x-www-form-urlencoded"}}));
    EXPECT_EQ(request.timeoutInterval().count(), 12.5);
    const std::optional<Data> body = request.httpBody();
    EXPECT_EQ(body.has_value(), !operation().body.empty());
    EXPECT_EQ(body ? body->view() : "", operation().body);
    EXPECT_EQ(context.tokenRequests, 0);
    EXPECT_EQ(context.dataRequests, 1);
    EXPECT_EQ(waits.count(), 0U);
}

TEST_P(TrelvoOperation, SucceedsOnTheDelegateQueueOfTheSession) {
    saveGoodTokens();
    std::thread::id queue;
    session->queue().async([&queue] { queue = std::this_thread::get_id(); });
    const Outcome outcome = outcomeOf(reply(200, goodBody()));
    EXPECT_EQ(outcome.text(), "success");
    EXPECT_EQ(outcome.thread, queue);
}

TEST_P(TrelvoOperation, FailsWithoutAUserOnTheCallersThreadEvenWithAToken) {
    saveGoodTokens();
    context.user = std::nullopt;
    run();
    const Outcome outcome = outcomes.only();
    EXPECT_EQ(outcome.text(), "Got nil uid from TrelvoContext.");
    EXPECT_EQ(outcome.thread, std::this_thread::get_id());
    EXPECT_EQ(context.tokenRequests + context.dataRequests, 0);
}

TEST_P(TrelvoOperation, TreatsAnEmptyStringAsAUser) {
    saveGoodTokens();
    context.user = "";
    run();
    EXPECT_NE(sent(0).find("?UID=&"), std::string::npos) << sent(0);
}

TEST_P(TrelvoOperation, NamesItselfIfThereIsNeitherATokenNorAnError) {
    const Event returned = onItsOwnThread([this] { run(); });
    session->answer(0, reply(200, "{}"));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(outcomes.only().text(), "Unknown error: In Trelvo." + operation().nameInErrors +
                                          "(), no saved auth data and no authError found");
    EXPECT_EQ(context.dataRequests, 0);
}

TEST_P(TrelvoOperation, FailsWithTheErrorOfTheTokenRequestOnTheCallersThread) {
    std::thread::id caller;
    const Event returned = onItsOwnThread([&] {
        caller = std::this_thread::get_id();
        run();
        EXPECT_EQ(outcomes.count(), 1U) << "the completion comes before the call returns";
    });
    session->answer(0, reply(503, "no"));
    ASSERT_TRUE(returned.wait());
    const Outcome outcome = outcomes.only();
    EXPECT_TRUE(outcome.is(Kind::noAuthToken));
    EXPECT_EQ(outcome.code(), 503);
    EXPECT_EQ(outcome.thread, caller);
    EXPECT_EQ(context.dataRequests, 0);
}

TEST_P(TrelvoOperation, ContinuesWithTheOldTokenIfTheRefreshFails) {
    save("old", 1005);
    const Event returned = onItsOwnThread([this] { run(); });
    session->answer(0, reply(401, ""));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(sent(1), operation().method + " " + operation().target + " Bearer access-old");
    EXPECT_EQ(outcomes.count(), 0U);
}

TEST_P(TrelvoOperation, KeepsOrIgnoresTheTokensOfItsResponse) {
    saveGoodTokens();
    saveError(TrelvoError::accountReconsentRequired());
    EXPECT_EQ(outcomeOf(reply(200, goodBody())).text(), "success");
    EXPECT_EQ(saved(), operation().keepsTokens ? "access-rotated" : "access-good");
    EXPECT_EQ(savedError(), TrelvoError::accountReconsentRequired().errorDescription())
        << "a data response does not change the error";
}

TEST_P(TrelvoOperation, KeepsTheOldTokensIfThoseOfItsResponseAreInvalid) {
    saveGoodTokens();
    (void)outcomeOf(reply(200, R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t"}})"));
    EXPECT_EQ(saved(), "access-good");
}

TEST_P(TrelvoOperation, HandlesAResponseWithoutDataAfterKeepingItsTokens) {
    saveGoodTokens();
    const Outcome outcome = outcomeOf(reply(200, "{" + authMember("rotated", 3000) + "}"));
    EXPECT_EQ(outcome.error ? std::optional(outcome.error->kind()) : std::nullopt, operation().emptyAnswer)
        << outcome;
    EXPECT_EQ(saved(), operation().keepsTokens ? "access-rotated" : "access-good");
}

TEST_P(TrelvoOperation, FailsAsGeneralIfItsRequestFailsAndKeepsNothing) {
    saveGoodTokens();
    const Outcome outcome = outcomeOf(reply(500, goodBody()));
    EXPECT_TRUE(outcome.is(Kind::general));
    EXPECT_EQ(outcome.loaderError().kind(), LoaderError::Kind::serverError);
    EXPECT_EQ(outcome.code(), 500);
    EXPECT_EQ(outcome.text(), outcome.loaderError().localizedDescription());
    EXPECT_EQ(saved(), "access-good");
    EXPECT_EQ(savedError(), "none");
}

TEST_P(TrelvoOperation, FailsAsGeneralIfTheServiceRejectsItsToken) {
    saveGoodTokens();
    const Outcome outcome = outcomeOf(reply(401, ""));
    EXPECT_TRUE(outcome.is(Kind::general));
    EXPECT_EQ(outcome.code(), 401);
    EXPECT_EQ(savedError(), "none");
}

TEST_P(TrelvoOperation, FailsAsGeneralIfItsResponseIsNotAnObject) {
    saveGoodTokens();
    std::size_t answered = 0;
    for (const char* const body : {"", "<html>", "[]", "{\"auth\":"}) {
        Outcomes of;
        operation().run(*trelvo, context, of.completed());
        session->answer(answered++, reply(200, body));
        EXPECT_TRUE(of.only().is(Kind::general)) << body;
        EXPECT_EQ(of.only().loaderError().kind(), LoaderError::Kind::failedToDecode) << body;
    }
}

TEST_P(TrelvoOperation, HasItsOwnRuleForA404) {
    saveGoodTokens();
    const Outcome outcome = outcomeOf(reply(404, goodBody()));
    EXPECT_EQ(outcome.error ? std::optional(outcome.error->kind()) : std::nullopt, operation().notFound)
        << outcome;
    EXPECT_EQ(saved(), "access-good");
}

TEST_P(TrelvoOperation, DropsItsCompletionUncalledIfTheContextBuildsNoDataRequest) {
    saveGoodTokens();
    context.buildsDataRequest = false;
    run();
    EXPECT_EQ(outcomes.dropped().count(), 1) << "before the call returns";
    EXPECT_EQ(outcomes.count(), 0U);
    EXPECT_EQ(context.dataRequests, 1);
}

TEST_P(TrelvoOperation, FailsOrSucceedsIfItsClientIsDestroyed) {
    std::size_t answered = 0;
    for (const std::int64_t status : {200, 404, 500}) {
        Outcomes of;
        saveGoodTokens();
        operation().run(*trelvo, context, of.completed());
        trelvo.reset();
        session->answer(answered++, reply(status, goodBody()));
        const Outcome outcome = of.only();
        if (operation().needsClient) {
            EXPECT_EQ(outcome.text(), "Unknown error: Trelvo deallocated when request returned") << status;
        } else {
            EXPECT_EQ(outcome.error.has_value(), status != 200) << outcome;
            EXPECT_EQ(outcome.code(), status == 200 ? 0 : status);
        }
        trelvo.reset(new Trelvo(TrelvoProbe::make([this] { return now.load(); })));
    }
}

TEST_P(TrelvoOperation, ReadsItsContextOnlyUntilItReturns) {
    saveGoodTokens();
    const Event reported;
    {
        UserContext shortLived = context;
        shortLived.log = [reported](const Error&) { reported.signal(); };
        operation().run(*trelvo, shortLived, outcomes.completed());
    }
    session->answer(0, reply(500, ""));
    EXPECT_EQ(outcomes.count(), 1U);
    EXPECT_EQ(reported.count(), 1) << "the failure is reported to the host";
}

}  // namespace
}  // namespace VanticRestKit::test
