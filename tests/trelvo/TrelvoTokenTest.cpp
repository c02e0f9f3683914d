// How a token is requested, kept and checked before an operation sends its request.

#include <trelvo/Client.h>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;
using Saved = std::vector<SavedData>;

class TrelvoToken : public Client {
protected:
    void list() {
        trelvo->listWatchlistShowIds({.completionHandler = completion<Saved>(outcomes.completed())}, context);
    }
    Event startListing() {
        return onItsOwnThread([this] { list(); });
    }
    /// The error of an operation whose token request number `index` gets this reply.
    Outcome outcomeOfToken(Reply reply, std::size_t index = 0) {
        outcomes = Outcomes();
        const Event returned = startListing();
        session->answer(index, std::move(reply));
        EXPECT_TRUE(returned.wait());
        return outcomes.only();
    }
};

TEST_F(TrelvoToken, IsAbsentAtTheStart) {
    EXPECT_FALSE(trelvo->auth());
    EXPECT_FALSE(trelvo->authError());
    EXPECT_EQ(state().timeUntilAuthExpires(), std::nullopt);
}

TEST_F(TrelvoToken, IsRequestedWithOnlyTheHostsHeadersIfNoneIsSaved) {
    context.headers = {{"Authorization", "Basic host"}, {"X-Host", "1"}};
    context.timeout = 7;
    const Event returned = startListing();
    const URLRequest request = session->request(0);
    EXPECT_EQ(sent(0), tokenRequest + "Basic host");
    EXPECT_EQ(request.allHTTPHeaderFields(), context.headers);
    EXPECT_EQ(request.timeoutInterval().count(), 7.0);
    EXPECT_EQ(request.httpBody(), std::nullopt);
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(sent(1), "GET /v2/saved/watchlist/show?UID=u1&raw=1&source=lumeno Bearer access-new");
    EXPECT_EQ(trelvo->auth(), tokens("new", 2000));
}

TEST_F(TrelvoToken, IsRefreshedWithTheRefreshTokenAsBearerToken) {
    save("old", 900);
    const Event returned = startListing();
    const URLRequest request = session->request(0);
    EXPECT_EQ(sent(0), tokenRequest + "Bearer refresh-old");
    EXPECT_EQ(request.allHTTPHeaderFields(),
              (std::map<std::string, std::string>{{"Authorization", "Bearer refresh-old"},
                                                  {"Content-Type", "application/x-www-form-urlencoded"}}));
    EXPECT_EQ(request.httpBody(), std::nullopt);
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_NE(sent(1).find(" Bearer access-new"), std::string::npos) << sent(1);
}

TEST_F(TrelvoToken, HasANegativeRemainingTimeAfterItsExpiry) {
    save("t", 1030.5);
    EXPECT_EQ(state().timeUntilAuthExpires(), 30.5);
    now = 1040.5;
    EXPECT_EQ(state().timeUntilAuthExpires(), -10.0);
}

TEST_F(TrelvoToken, IsRefreshedWithExactlyFiveSecondsLeftAndUsedWithMore) {
    save("t", 1005.0);
    EXPECT_TRUE(state().refreshAuth(context));
    save("t", 1005.000001);
    EXPECT_FALSE(state().refreshAuth(context));
    save("t", 999.0);
    EXPECT_TRUE(state().refreshAuth(context));
    EXPECT_EQ(context.tokenRequests, 2);
}

TEST_F(TrelvoToken, AcceptsAnyNumberAsItsExpiry) {
    for (const double expiry : {1e300, 9.3e18, 2.5e9}) {
        save("t", expiry);
        EXPECT_FALSE(state().refreshAuth(context)) << expiry;
    }
    for (const double expiry : {-1e300, 0.0, -9.3e18}) {
        save("t", expiry);
        EXPECT_TRUE(state().refreshAuth(context)) << expiry;
    }
}

TEST_F(TrelvoToken, IsNotRequestedWithoutAUser) {
    context.user = std::nullopt;
    EXPECT_FALSE(state().refreshAuth(context));
    EXPECT_EQ(context.tokenRequests, 0);
}

TEST_F(TrelvoToken, HasASeparateGroupForEachRequestThatTheResponseLeaves) {
    const auto first = state().refreshAuth(context);
    const auto second = state().refreshAuth(context);
    ASSERT_TRUE(first && second);
    session->answer(1, reply(500, ""));
    session->answer(0, reply(200, "{}"));
    first->wait();
    second->wait();
    EXPECT_EQ(context.tokenRequests, 2);
}

TEST_F(TrelvoToken, LeavesItsGroupEvenIfTheClientIsDestroyed) {
    for (const Reply& answered :
         {reply(401, ""), reply(500, ""), reply(200, "{}"), tokenReply("new", 2000)}) {
        trelvo.reset(new Trelvo(TrelvoProbe::make([this] { return now.load(); })));
        session = std::make_shared<ScriptedSession>();
        context.session = session;
        const auto group = state().refreshAuth(context);
        ASSERT_TRUE(group);
        trelvo.reset();
        session->answer(0, answered);
        group->wait();
    }
}

TEST_F(TrelvoToken, RejectedWithA401MeansThatConsentIsNeededAgain) {
    EXPECT_TRUE(outcomeOfToken(reply(401, "{}")).is(Kind::accountReconsentRequired));
    EXPECT_TRUE(trelvo->authError() == TrelvoError::accountReconsentRequired());
    EXPECT_FALSE(trelvo->auth());
}

TEST_F(TrelvoToken, FailingWithTheCode401OfAnotherErrorIsAMissingToken) {
    const Outcome outcome = outcomeOfToken({.error = Error(NSError(NetworkError::errorDomain(), 401))});
    EXPECT_TRUE(outcome.is(Kind::noAuthToken)) << "only a status of 401 means that consent is needed again";
    EXPECT_EQ(outcome.code(), 401);
}

/// Fails each fetch with a foreign error that has the domain and the code of a library error.
class ForeignService final : public Serviceable {
public:
    void fetch(FetchArguments arguments) override { arguments.with.value()(Failure(error())); }
    AnyPublisher<Data> fetch() override { return AnyPublisher<Data>::fail(error()); }

private:
    static Error error() { return NSError(NetworkError::errorDomain(), 401); }
};

TEST_F(TrelvoToken, FailingWithTheCode401OfAHostsServiceIsAMissingToken) {
    class ForeignContext final : public UserContext {
    public:
        std::shared_ptr<Serviceable> service(ServiceArguments) const override {
            return std::make_shared<ForeignService>();
        }
    };
    const ForeignContext foreign;
    trelvo->listWatchlistShowIds({.completionHandler = completion<Saved>(outcomes.completed())}, foreign);
    EXPECT_TRUE(outcomes.only().is(Kind::noAuthToken));
    EXPECT_EQ(outcomes.only().loaderError().underlyingError()->code(), 401);
}

TEST_F(TrelvoToken, CanBeWaitedForOnTheMainQueue) {
    const Event returned;
    DispatchQueue::main().async([this, returned] {
        list();
        returned.signal();
    });
    (void)waits.awaited(0);
    EXPECT_EQ(returned.count(), 0);
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait()) << "the main queue waits for the token, but is not needed to deliver it";
    session->answer(1, reply(200, R"({"data":[]})"));
    EXPECT_EQ(outcomes.only().text(), "success");
}

TEST_F(TrelvoToken, FailingInAnyOtherWayIsAMissingToken) {
    const Reply failures[] = {reply(400, ""), reply(403, ""), reply(404, ""), reply(500, ""),
                              transportFailure(NetworkError::internalSDKError("lost"))};
    std::size_t index = 0;
    for (const Reply& failure : failures) {
        const Outcome outcome = outcomeOfToken(failure, index++);
        EXPECT_TRUE(outcome.is(Kind::noAuthToken)) << outcome;
        EXPECT_EQ(outcome.loaderError().kind(), LoaderError::Kind::serverError);
        EXPECT_EQ(
            outcome.text(),
            "No valid auth token was found.  The last call to the token endpoint produced this error: " +
                outcome.loaderError().localizedDescription());
    }
}

TEST_F(TrelvoToken, InAMalformedResponseIsAMissingToken) {
    std::size_t index = 0;
    for (const char* const body : {"", "nonsense", "[]", "null", "{"}) {
        const Outcome outcome = outcomeOfToken(reply(200, body), index++);
        EXPECT_TRUE(outcome.is(Kind::noAuthToken)) << outcome;
        EXPECT_EQ(outcome.loaderError().kind(), LoaderError::Kind::failedToDecode) << body;
    }
}

TEST_F(TrelvoToken, InAnIncompleteResponseChangesNothing) {
    std::size_t index = 0;
    const char* const bodies[] = {
        "{}",
        R"({"auth":null})",
        R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t"}})",
        R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t","expiry":"2000"}})",
        R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t","expiry":1e400}})",
        R"({"auth":{"access_token":"a","refresh_token":"r","expiry":2000}})",
        R"({"auth":{"access_token":"a","token_type":"t","expiry":2000}})",
        R"({"auth":{"refresh_token":"r","token_type":"t","expiry":2000}})",
    };
    for (const char* const body : bodies) {
        EXPECT_EQ(
            outcomeOfToken(reply(200, body), index++).text(),
            "Unknown error: In Trelvo.listWatchlistShowIds(), no saved auth data and no authError found")
            << body;
        EXPECT_EQ(saved(), "none") << body;
        EXPECT_EQ(savedError(), "none") << body;
    }
}

TEST_F(TrelvoToken, AResponseWithoutATokenKeepsTheOlderError) {
    EXPECT_TRUE(outcomeOfToken(reply(401, "")).is(Kind::accountReconsentRequired));
    EXPECT_TRUE(outcomeOfToken(reply(200, "{}"), 1).is(Kind::accountReconsentRequired));
    EXPECT_TRUE(outcomeOfToken(reply(500, ""), 2).is(Kind::noAuthToken)) << "the last failure replaces it";
}

TEST_F(TrelvoToken, IsKeptTogetherWithTheErrorOfAFailedRefresh) {
    save("old", 1000);
    const Event returned = startListing();
    session->answer(0, reply(401, ""));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(saved(), "access-old");
    EXPECT_EQ(savedError(), TrelvoError::accountReconsentRequired().errorDescription());
    session->answer(1, reply(200, R"({"data":[]})"));
    EXPECT_EQ(outcomes.only().text(), "success") << "the error is not reported while there is a token";
}

TEST_F(TrelvoToken, IsKeptWithoutAnErrorIfTheResponseIsIncomplete) {
    save("old", 1000);
    const Event returned = startListing();
    session->answer(0, reply(200, R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t"}})"));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(trelvo->auth(), tokens("old", 1000));
    EXPECT_EQ(savedError(), "none");
    EXPECT_NE(sent(1).find(" Bearer access-old"), std::string::npos);
}

TEST_F(TrelvoToken, ClearsTheErrorWhenItArrives) {
    save("old", 1000);
    saveError(TrelvoError::accountReconsentRequired());
    const Event returned = startListing();
    EXPECT_EQ(sent(0), tokenRequest + "Bearer refresh-old");
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(saved(), "access-new");
    EXPECT_EQ(savedError(), "none");
}

TEST_F(TrelvoToken, IsUsedWhileValidWhateverTheSavedError) {
    saveGoodTokens();
    saveError(TrelvoError::accountReconsentRequired());
    list();
    EXPECT_EQ(context.tokenRequests, 0);
    EXPECT_NE(sent(0).find(" Bearer access-good"), std::string::npos);
}

TEST_F(TrelvoToken, ThatArrivesExpiredIsUsedOnceAndRefreshedByTheNextCall) {
    const Event returned = startListing();
    session->answer(0, tokenReply("short", 1001));
    ASSERT_TRUE(returned.wait());
    EXPECT_NE(sent(1).find(" Bearer access-short"), std::string::npos);
    const Event again = startListing();
    EXPECT_EQ(sent(2), tokenRequest + "Bearer refresh-short");
    session->answer(2, tokenReply("new", 2000));
    EXPECT_TRUE(again.wait());
}

TEST_F(TrelvoToken, IsRemovedByClearAuthTogetherWithItsError) {
    saveGoodTokens();
    saveError(TrelvoError::accountReconsentRequired());
    trelvo->clearAuth();
    EXPECT_EQ(saved(), "none");
    EXPECT_EQ(savedError(), "none");
    const Event returned = startListing();
    EXPECT_EQ(sent(0), tokenRequest + "none");
    session->answer(0, tokenReply("new", 2000));
    EXPECT_TRUE(returned.wait());
}

TEST_F(TrelvoToken, CanStillArriveAfterClearAuth) {
    const Event returned = startListing();
    (void)waits.awaited(0);
    trelvo->clearAuth();
    session->answer(0, tokenReply("late", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(saved(), "access-late");
}

TEST_F(TrelvoToken, DoesNotBlockOtherCallersWhileOneWaitsForIt) {
    const Event returned = startListing();
    (void)waits.awaited(0);
    (void)session->request(0);
    saveGoodTokens();
    list();
    EXPECT_NE(sent(1).find(" Bearer access-good"), std::string::npos);
    EXPECT_EQ(returned.count(), 0);
    session->answer(0, reply(500, ""));
    EXPECT_TRUE(returned.wait());
}

TEST_F(TrelvoToken, CanBeWaitedForOnAPoolQueue) {
    const Event returned;
    DispatchQueue("host").async([this, returned] {
        list();
        returned.signal();
    });
    (void)waits.awaited(0);
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_NE(sent(1).find(" Bearer access-new"), std::string::npos);
}

}  // namespace
}  // namespace VanticRestKit::test
