// Tokens and data arriving in every possible order: which callers wait, and which token is used.

#include <trelvo/Client.h>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;
using Saved = std::vector<SavedData>;
using History = std::vector<HistoryData>;

const std::string listing = "GET /v2/saved/watchlist/show?UID=u1&raw=1&source=lumeno ";
constexpr const char* empty = R"({"data":[]})";

class TrelvoOrder : public Client {
protected:
    static void list(Trelvo& trelvo, const TrelvoContext& context, Completed completed) {
        trelvo.listWatchlistShowIds({.completionHandler = completion<Saved>(std::move(completed))}, context);
    }
    Event startListing(const Outcomes& into, const UserContext& with) {
        return onItsOwnThread([this, into, &with] { list(*trelvo, with, into.completed()); });
    }
    Event startListing() { return startListing(outcomes, context); }
    void list() { list(*trelvo, context, outcomes.completed()); }
};

TEST_F(TrelvoOrder, ATokenIsRefreshedAtFiveSecondsAndUsedAboveThat) {
    save("old", 1005.0);
    const Event returned = startListing();
    EXPECT_EQ(sent(0), tokenRequest + "Bearer refresh-old");
    session->answer(0, tokenReply("new", 1005.000001));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(sent(1), listing + "Bearer access-new");
    session->answer(1, reply(200, empty));
    list();
    EXPECT_EQ(sent(2), listing + "Bearer access-new");
    EXPECT_EQ(context.tokenRequests, 1);
}

TEST_F(TrelvoOrder, ACallReturnsAfterTheTokenAndCompletesAfterTheData) {
    const Event returned = startListing();
    (void)waits.awaited(0);
    EXPECT_EQ(returned.count(), 0);
    EXPECT_EQ(context.dataRequests, 0);
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(outcomes.count(), 0U);
    std::thread::id queue;
    session->queue().async([&queue] { queue = std::this_thread::get_id(); });
    session->answer(1, reply(200, empty));
    EXPECT_EQ(outcomes.only().text(), "success");
    EXPECT_EQ(outcomes.only().thread, queue);
    EXPECT_EQ(context.tokenRequests, 1);
    EXPECT_EQ(context.dataRequests, 1);
    EXPECT_EQ(waits.count(), 1U);
}

TEST_F(TrelvoOrder, AMissingUserIsReportedBeforeTheCallReturnsWhateverTheToken) {
    saveGoodTokens();
    context.user = std::nullopt;
    list();
    EXPECT_TRUE(outcomes.only().is(Kind::noUid));
    EXPECT_EQ(outcomes.only().thread, std::this_thread::get_id());
    EXPECT_EQ(context.tokenRequests + context.dataRequests, 0);
    EXPECT_EQ(waits.count(), 0U);
}

TEST_F(TrelvoOrder, EachCallRequestsATokenAgainWhileTheServiceRejectsThem) {
    for (std::size_t call = 0; call < 2; ++call) {
        const Outcomes of;
        const Event returned = onItsOwnThread([this, of] {
            list(*trelvo, context, of.completed());
            EXPECT_EQ(of.count(), 1U) << "before the call returns";
        });
        EXPECT_EQ(sent(call), tokenRequest + "none");
        session->answer(call, reply(401, ""));
        ASSERT_TRUE(returned.wait());
        EXPECT_TRUE(of.only().is(Kind::accountReconsentRequired));
    }
    EXPECT_EQ(context.tokenRequests, 2);
    EXPECT_EQ(context.dataRequests, 0);
}

TEST_F(TrelvoOrder, AnExpiredTokenThatIsNotRefreshedIsRejectedByTheService) {
    save("old", 900);
    const Event returned = startListing();
    session->answer(0, reply(401, ""));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(sent(1), listing + "Bearer access-old");
    session->answer(1, reply(401, ""));
    EXPECT_TRUE(outcomes.only().is(Kind::general));
    EXPECT_EQ(outcomes.only().code(), 401);
    EXPECT_EQ(context.tokenRequests, 1) << "nothing is retried within a call";
    EXPECT_TRUE(trelvo->authError() == TrelvoError::accountReconsentRequired());
}

TEST_F(TrelvoOrder, EachWaitingCallerUsesTheTokenSavedWhenItWakesAndTheLastResponseIsKept) {
    const UserContext other = context;
    const Outcomes first;
    const Outcomes second;
    const Event firstReturned = startListing(first, context);
    (void)waits.awaited(0);
    (void)session->request(0);
    const Event secondReturned = startListing(second, other);
    (void)waits.awaited(1);
    EXPECT_EQ(sent(1), tokenRequest + "none");
    session->answer(1, tokenReply("second", 2000));
    ASSERT_TRUE(secondReturned.wait());
    EXPECT_EQ(sent(2), listing + "Bearer access-second");
    session->answer(2, reply(200, empty));
    EXPECT_EQ(second.only().text(), "success");
    EXPECT_EQ(firstReturned.count(), 0);
    session->answer(0, tokenReply("first", 1500));
    ASSERT_TRUE(firstReturned.wait());
    EXPECT_EQ(sent(3), listing + "Bearer access-first");
    session->answer(3, reply(200, empty));
    EXPECT_EQ(first.only().text(), "success");
    EXPECT_EQ(trelvo->auth(), tokens("first", 1500));
    EXPECT_EQ(context.tokenRequests + other.tokenRequests, 2);
}

TEST_F(TrelvoOrder, ACallerWhoseTokenRequestFailsUsesTheTokenOfAnother) {
    const UserContext other = context;
    const Event firstReturned = startListing();
    (void)waits.awaited(0);
    (void)session->request(0);
    const Event secondReturned = startListing(Outcomes(), other);
    (void)waits.awaited(1);
    session->answer(1, tokenReply("second", 2000));
    ASSERT_TRUE(secondReturned.wait());
    (void)session->request(2);
    session->answer(0, reply(500, ""));
    ASSERT_TRUE(firstReturned.wait());
    EXPECT_EQ(sent(3), listing + "Bearer access-second");
    EXPECT_NE(savedError(), "none");
}

TEST_F(TrelvoOrder, ACallInACompletionUsesARotatedTokenEvenOfAResponseWithoutData) {
    save("old", 2000);
    Completed failed = outcomes.completed();
    trelvo->listWatchlistShowIds({.completionHandler = completion<Saved>([&](Outcome outcome) {
                                      failed(std::move(outcome));
                                      list(*trelvo, context, Outcomes().completed());
                                  })},
                                 context);
    session->answer(0, reply(200, "{" + authMember("rotated", 3000) + "}"));
    EXPECT_TRUE(outcomes.only().is(Kind::unableToRetrieveSavedData));
    EXPECT_EQ(sent(1), listing + "Bearer access-rotated");
    EXPECT_EQ(context.tokenRequests, 0);
}

TEST_F(TrelvoOrder, ACallInAHistoryCompletionUsesTheOldToken) {
    save("old", 2000);
    Completed failed = outcomes.completed();
    trelvo->getVideoProgress(
        {.showId = 1, .houseNumber = "ZW1", .completionHandler = completion<History>([&](Outcome outcome) {
                                                failed(std::move(outcome));
                                                list(*trelvo, context, Outcomes().completed());
                                            })},
        context);
    session->answer(0, reply(200, "{" + authMember("rotated", 3000) + "}"));
    EXPECT_TRUE(outcomes.only().is(Kind::unableToRetrieveHistoryData));
    EXPECT_EQ(sent(1), listing + "Bearer access-old");
    EXPECT_EQ(saved(), "access-old");
}

TEST_F(TrelvoOrder, ATokenRotatedAfterClearAuthIsUsedByTheNextCall) {
    save("old", 2000);
    list();
    (void)session->request(0);
    trelvo->clearAuth();
    session->answer(0, reply(200, R"({"data":[],)" + authMember("rotated", 3000) + "}"));
    list();
    EXPECT_EQ(sent(1), listing + "Bearer access-rotated");
    EXPECT_EQ(context.tokenRequests, 0);
}

TEST_F(TrelvoOrder, ACallInACompletionWaitsForATokenOnTheQueueThatItBlocks) {
    saveGoodTokens();
    const Outcomes inner;
    trelvo->listWatchlistShowIds({.completionHandler = completion<Saved>([this, inner](Outcome) {
                                      trelvo->clearAuth();
                                      list(*trelvo, context, inner.completed());
                                  })},
                                 context);
    const Event outerEnded = session->post(0, reply(200, empty), session->queue());
    const DispatchGroup group = waits.awaited(0);
    // The token is queued after the completion that waits for it, so only another thread can end the wait. The group is
    // entered again for the token's own leave, which must not come before that.
    const Event entered;
    session->queue().async([entered] { EXPECT_TRUE(entered.wait()); });
    const Event tokenDelivered = session->post(1, tokenReply("late", 2000), session->queue());
    group.leave();
    group.enter();
    entered.signal();
    ASSERT_TRUE(outerEnded.wait());
    ASSERT_TRUE(tokenDelivered.wait());
    EXPECT_TRUE(inner.only().is(Kind::unknown)) << "the token had not come when the wait ended";
    EXPECT_EQ(saved(), "access-late");
}

TEST_F(TrelvoOrder, ACallInACompletionReturnsIfAnotherSessionsQueueDeliversTheToken) {
    saveGoodTokens();
    const auto otherSession = std::make_shared<ScriptedSession>();
    UserContext other = context;
    other.session = otherSession;
    const Outcomes inner;
    trelvo->listWatchlistShowIds({.completionHandler = completion<Saved>([&](Outcome) {
                                      now = 3000;
                                      list(*trelvo, other, inner.completed());
                                  })},
                                 context);
    const Event outerEnded = session->post(0, reply(200, empty), session->queue());
    (void)waits.awaited(0);
    otherSession->answer(0, tokenReply("other", 9000));
    ASSERT_TRUE(outerEnded.wait());
    otherSession->answer(1, reply(200, empty));
    EXPECT_EQ(inner.only().text(), "success");
}

TEST_F(TrelvoOrder, ACallInACompletionReturnsIfItsTokenIsGood) {
    saveGoodTokens();
    const Outcomes inner;
    trelvo->listWatchlistShowIds(
        {.completionHandler = completion<Saved>([&](Outcome) { list(*trelvo, context, inner.completed()); })},
        context);
    session->answer(0, reply(200, empty));
    session->answer(1, reply(200, empty));
    EXPECT_EQ(inner.only().text(), "success");
}

TEST_F(TrelvoOrder, ACallerWaitsForeverIfTheContextBuildsNoTokenRequest) {
    context.buildsTokenRequest = false;
    const Event returned = startListing();
    const DispatchGroup group = waits.awaited(0);
    EXPECT_EQ(context.tokenRequests, 1);
    EXPECT_EQ(returned.count(), 0);
    // The group is still entered and has nothing left to leave it. A leave without an enter would end the process.
    group.leave();
    ASSERT_TRUE(returned.wait());
    EXPECT_TRUE(outcomes.only().is(Kind::unknown));
    EXPECT_EQ(session->count(), 0U);
}

TEST_F(TrelvoOrder, ACompletionIsDroppedUncalledIfTheContextBuildsNoDataRequest) {
    context.buildsDataRequest = false;
    const Event returned = startListing();
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(outcomes.dropped().count(), 1);
    EXPECT_EQ(outcomes.count(), 0U);
    EXPECT_EQ(session->count(), 1U);
    EXPECT_EQ(saved(), "access-new");
}

}  // namespace
}  // namespace VanticRestKit::test
