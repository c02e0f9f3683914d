// How a user client requests, keeps and checks tokens.

#include <trelvo/UserClientFixture.h>

namespace VanticRestKit::test {
namespace {

class UserClientToken : public UserClientFixture {};

TEST_F(UserClientToken, IsRequestedWithOnlyTheHostsHeadersIfNoneIsHeld) {
    context->headers = {{"Authorization", "Basic host"}, {"X-Host", "1"}};
    list();
    EXPECT_EQ(sent(0), tokenRequest + "Basic host");
    EXPECT_EQ(session->request(0).allHTTPHeaderFields(), context->headers);
    answer(0, tokenReply("new", 2000));
    EXPECT_EQ(sent(1), listRequest + "new");
    EXPECT_EQ(session->request(1).value("X-Host"), "1");
    answer(1, noRecords());
    EXPECT_EQ(only().text(), "success");
    EXPECT_EQ(client->auth(), (UserAuth{.uid = "u1", .auth = tokens("new", 2000)}));
}

TEST_F(UserClientToken, IsRefreshedWithTheRefreshTokenAsBearerToken) {
    save("old", 900);
    list();
    EXPECT_EQ(session->request(0).allHTTPHeaderFields(),
              (std::map<std::string, std::string>{{"Authorization", "Bearer refresh-old"},
                                                  {"Content-Type", "application/x-www-form-urlencoded"}}));
    EXPECT_EQ(session->request(0).httpBody(), std::nullopt);
    answer(0, tokenReply("new", 2000));
    EXPECT_EQ(sent(1), listRequest + "new");
}

TEST_F(UserClientToken, IsRefreshedWithExactlyFiveSecondsLeftAndUsedWithMore) {
    save("five", 1005.0);
    list();
    EXPECT_EQ(sent(0), tokenRequest + "Bearer refresh-five");
    handles.clear();
    save("more", 1005.000001);
    list();
    EXPECT_EQ(sent(1), listRequest + "more");
}

TEST_F(UserClientToken, RejectedWithA401MeansThatConsentIsNeededAgain) {
    list();
    answer(0, reply(401, "{}"));
    EXPECT_TRUE(only().is(Kind::accountReconsentRequired));
    EXPECT_EQ(held(), "none");
}

TEST_F(UserClientToken, FailingInAnyOtherWayIsAMissingToken) {
    const Reply failures[] = {reply(400, ""), reply(404, ""), reply(500, ""), reply(200, "nonsense"),
                              transportFailure(NetworkError::internalSDKError("lost"))};
    std::size_t index = 0;
    for (const Reply& failure : failures) {
        const Outcomes separate = listSeparately();
        answer(index, failure);
        const Outcome outcome = only(separate);
        EXPECT_TRUE(outcome.is(Kind::noAuthToken)) << outcome;
        EXPECT_EQ(outcome.loaderError().kind(),
                  index == 3 ? LoaderError::Kind::failedToDecode : LoaderError::Kind::serverError);
        ++index;
    }
}

TEST_F(UserClientToken, MissingInTheResponseFailsAsUnknownAndNamesTheOperation) {
    list();
    answer(0, reply(200, R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t"}})"));
    EXPECT_EQ(only().text(),
              "Unknown error: In Trelvo.listWatchlistShowIds(), no saved auth data and no authError found");
}

TEST_F(UserClientToken, MissingForTheViewingHistoryNamesListRecentVideos) {
    handles.push_back(client->viewingHistory({.limit = 1u})
                          .start({}, completion<std::vector<HistoryData>>(outcomes.completed())));
    answer(0, reply(200, "{}"));
    EXPECT_EQ(only().text(),
              "Unknown error: In Trelvo.listRecentVideos(), no saved auth data and no authError found");
}

TEST_F(UserClientToken, MissingInTheResponseKeepsTheOlderError) {
    const Outcomes first = listSeparately();
    answer(0, reply(401, ""));
    EXPECT_TRUE(only(first).is(Kind::accountReconsentRequired));
    list();
    answer(1, reply(200, "{}"));
    EXPECT_TRUE(only().is(Kind::accountReconsentRequired));
}

TEST_F(UserClientToken, IsUsedAfterAFailedRefresh) {
    std::size_t index = 0;
    for (const Reply& failure : {reply(401, ""), reply(500, ""), reply(200, "{}")}) {
        save("old", 1000);
        const Outcomes separate = listSeparately();
        EXPECT_EQ(sent(index), tokenRequest + "Bearer refresh-old");
        answer(index, failure);
        EXPECT_EQ(sent(index + 1), listRequest + "old");
        answer(index + 1, noRecords());
        EXPECT_EQ(only(separate).text(), "success");
        EXPECT_EQ(held(), "access-old");
        index += 2;
    }
}

TEST_F(UserClientToken, ThatIsRefusedAfterItWasRemovedIsReplacedByANewOne) {
    save("good", 2000);
    list();
    EXPECT_EQ(sent(0), listRequest + "good");
    client->setAuth(std::nullopt);
    answer(0, reply(401, ""));
    EXPECT_TRUE(sent(1).starts_with(tokenRequest)) << sent(1);
    answer(1, tokenReply("new", 2000));
    EXPECT_EQ(sent(2), listRequest + "new");
    answer(2, noRecords());
    EXPECT_EQ(only().text(), "success");
}

TEST_F(UserClientToken, ThatIsRefusedAfterItWasRemovedFailsAsAnsweredIfThereIsNoNewOne) {
    save("good", 2000);
    list();
    EXPECT_EQ(sent(0), listRequest + "good");
    client->setAuth(std::nullopt);
    answer(0, reply(401, ""));
    EXPECT_TRUE(sent(1).starts_with(tokenRequest)) << sent(1);
    answer(1, reply(500, ""));
    EXPECT_EQ(only().code(), 401);
}

TEST_F(UserClientToken, ThatArrivesExpiredIsUsedOnceAndRefreshedForTheNextOperation) {
    list();
    answer(0, tokenReply("short", 1001));
    EXPECT_EQ(sent(1), listRequest + "short");
    list();
    EXPECT_EQ(sent(2), tokenRequest + "Bearer refresh-short");
}

TEST_F(UserClientToken, OfADataResponseIsKeptBeforeTheOutcomeIsDelivered) {
    save("good", 2000);
    std::string inCompletion;
    const Event done;
    handles.push_back(client->listWatchlistShowIds().start({}, [&](const Result<Saved, TrelvoError>&) {
        inCompletion = client->auth()->auth.accessToken;
        done.signal();
    }));
    answer(0, reply(200, R"({"data":[],)" + authMember("rotated", 3000) + "}"));
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(inCompletion, "access-rotated");
}

TEST_F(UserClientToken, IsNotSentIfItHasCharactersInvalidInAHeader) {
    client->setAuth(
        UserAuth{.uid = "u1", .auth = {.accessToken = "a\nb", .expiry = Date(Date::duration(2000))}});
    list();
    EXPECT_EQ(session->request(0).value("Authorization"), std::nullopt);
}

TEST_F(UserClientToken, IsRequestedOnceHoweverManyOperationsWait) {
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i) list();
    EXPECT_EQ(sentCount(), 1U);
    EXPECT_EQ(sent(0), tokenRequest + "none");
    answer(0, tokenReply("new", 2000));
    EXPECT_EQ(sentCount(), 1U + count);
    for (std::size_t i = 1; i <= count; ++i) answer(i, noRecords());
    ASSERT_TRUE(outcomes.dropped().wait(count));
    EXPECT_EQ(outcomes.count(), static_cast<std::size_t>(count));
    EXPECT_EQ(session->count(), 1U + count);
}

TEST_F(UserClientToken, FailingFailsAllWaitingOperationsWithOneRequest) {
    for (int i = 0; i < 10; ++i) list();
    answer(0, reply(503, ""));
    ASSERT_TRUE(outcomes.dropped().wait(10));
    EXPECT_EQ(outcomes.count(), 10U);
    EXPECT_EQ(sentCount(), 1U);
}

}  // namespace
}  // namespace VanticRestKit::test
