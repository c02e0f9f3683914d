// How a user client handles a token that the service rejects before its expiry.

#include <trelvo/UserClientFixture.h>

namespace VanticRestKit::test {
namespace {

class UserClientRefusedToken : public UserClientFixture {
protected:
    void SetUp() override { save("good", 2000); }
};

TEST_F(UserClientRefusedToken, IsRefreshedOnceAndTheOperationRepeatedOnce) {
    list();
    EXPECT_EQ(sent(0), listRequest + "good");
    answer(0, reply(401, ""));
    EXPECT_EQ(sent(1), tokenRequest + "Bearer refresh-good");
    answer(1, tokenReply("new", 2000));
    EXPECT_EQ(sent(2), listRequest + "new");
    answer(2, noRecords());
    EXPECT_EQ(only().text(), "success");
    EXPECT_EQ(sentCount(), 3U);
}

TEST_F(UserClientRefusedToken, ASecondTimeFailsTheOperation) {
    list();
    answer(0, reply(401, ""));
    answer(1, tokenReply("new", 2000));
    answer(2, reply(401, ""));
    EXPECT_TRUE(only().is(Kind::general));
    EXPECT_EQ(only().code(), 401);
    EXPECT_EQ(sentCount(), 3U);
}

TEST_F(UserClientRefusedToken, FailsTheOperationWithTheFirst401IfItCannotBeRefreshed) {
    std::size_t index = 0;
    for (const Reply& failure : {reply(401, ""), reply(500, ""), reply(200, "{}")}) {
        save("good", 2000);
        const Outcomes separate = listSeparately();
        answer(index++, reply(401, ""));
        answer(index++, failure);
        EXPECT_TRUE(only(separate).is(Kind::general));
        EXPECT_EQ(only(separate).code(), 401);
        EXPECT_EQ(sentCount(), index);
    }
}

TEST_F(UserClientRefusedToken, IsRefreshedBeforeTheNextOperationIfTheRefreshFailed) {
    list();
    answer(0, reply(401, ""));
    answer(1, reply(500, ""));
    EXPECT_EQ(only().code(), 401);
    list();
    EXPECT_EQ(sent(2), tokenRequest + "Bearer refresh-good");
}

TEST_F(UserClientRefusedToken, IsNotUsedByOperationsThatStartDuringItsRefresh) {
    list();
    answer(0, reply(401, ""));
    EXPECT_EQ(sent(1), tokenRequest + "Bearer refresh-good");
    list();
    EXPECT_EQ(sentCount(), 2U);
    answer(1, tokenReply("new", 2000));
    EXPECT_EQ(sent(2), listRequest + "new");
    EXPECT_EQ(sent(3), listRequest + "new");
}

TEST_F(UserClientRefusedToken, IsRefreshedOnceForAllOperationsSentWithIt) {
    for (int i = 0; i < 3; ++i) list();
    answer(0, reply(401, ""));
    answer(1, reply(401, ""));
    EXPECT_EQ(sent(3), tokenRequest + "Bearer refresh-good");
    EXPECT_EQ(sentCount(), 4U);
    answer(3, tokenReply("new", 2000));
    EXPECT_EQ(sent(5), listRequest + "new");
    // This response arrives after the refresh, so no second refresh is needed.
    answer(2, reply(401, ""));
    EXPECT_EQ(sent(6), listRequest + "new");
    EXPECT_EQ(sentCount(), 7U);
    for (std::size_t i = 4; i < 7; ++i) answer(i, noRecords());
    ASSERT_TRUE(outcomes.dropped().wait(3));
    EXPECT_EQ(outcomes.count(), 3U);
}

TEST_F(UserClientRefusedToken, FailsTheOperationIfItWasUsedAfterAFailedRefresh) {
    save("old", 900);
    list();
    answer(0, reply(500, ""));
    EXPECT_EQ(sent(1), listRequest + "old");
    answer(1, reply(401, ""));
    EXPECT_EQ(only().code(), 401);
    EXPECT_EQ(sentCount(), 2U);
}

TEST_F(UserClientRefusedToken, OtherFailuresDoNotRepeatTheOperation) {
    std::size_t index = 0;
    for (const int status : {400, 403, 404, 500}) {
        const Outcomes separate = listSeparately();
        answer(index++, reply(status, ""));
        EXPECT_EQ(only(separate).code(), status);
    }
    EXPECT_EQ(sentCount(), 4U);
}

TEST_F(UserClientRefusedToken, ACancelledOperationEndsTheRefreshIfNoOtherNeedsIt) {
    list();
    answer(0, reply(401, ""));
    EXPECT_EQ(sent(1), tokenRequest + "Bearer refresh-good");
    handles[0].cancel();
    EXPECT_TRUE(isCancelled(only()));
    EXPECT_TRUE(session->awaitCancel(1));
}

}  // namespace
}  // namespace VanticRestKit::test
