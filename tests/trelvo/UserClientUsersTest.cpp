// How a user client handles and reports a change of its user, a sign-out and supplied tokens.

#include <trelvo/UserClientFixture.h>

namespace VanticRestKit::test {
namespace {

class UserClientUsers : public UserClientFixture {};

TEST_F(UserClientUsers, NeverSendTheTokensOfThePreviousUser) {
    save("ann", 2000);
    context->user = "u2";
    list();
    EXPECT_EQ(sent(0), "GET /v2/token?UID=u2&source=lumeno none");
    EXPECT_EQ(held(), "none");
    answer(0, tokenReply("bob", 2000));
    EXPECT_EQ(sent(1), "GET /v2/saved/watchlist/show?UID=u2&raw=1&source=lumeno Bearer access-bob");
    EXPECT_EQ(client->auth()->uid, "u2");
}

TEST_F(UserClientUsers, CancelTheOperationsOfThePreviousUser) {
    save("ann", 2000);
    const Outcomes sentAlready = listSeparately();
    EXPECT_EQ(sent(0), listRequest + "ann");
    save("ann", 900);
    const Outcomes waiting = listSeparately();
    EXPECT_EQ(sent(1), tokenRequest + "Bearer refresh-ann");
    context->user = "u2";
    list();
    EXPECT_TRUE(isCancelled(only(sentAlready)));
    EXPECT_TRUE(isCancelled(only(waiting)));
    EXPECT_TRUE(session->isCancelled(0));
    EXPECT_TRUE(session->isCancelled(1));
    answer(0, reply(200, R"({"data":[],)" + authMember("late", 3000) + "}"));
    answer(1, tokenReply("late", 3000));
    EXPECT_EQ(held(), "none");
    EXPECT_EQ(outcomes.count(), 0U) << "the operation of the new user continues";
}

TEST_F(UserClientUsers, WithoutAUidFailAndEndRunningOperations) {
    save("ann", 2000);
    const Outcomes former = listSeparately();
    EXPECT_EQ(sent(0), listRequest + "ann");
    context->user = std::nullopt;
    list();
    EXPECT_TRUE(only().is(Kind::noUid));
    EXPECT_TRUE(isCancelled(only(former)));
    EXPECT_EQ(held(), "none");
    EXPECT_EQ(sentCount(), 1U);
}

TEST_F(UserClientUsers, CanHaveAnEmptyName) {
    context->user = "";
    list();
    EXPECT_EQ(sent(0), "GET /v2/token?UID=&source=lumeno none");
}

TEST_F(UserClientUsers, SigningOutCancelTheirOperationsAndLoseTheirTokens) {
    save("ann", 900);
    list();
    EXPECT_EQ(sent(0), tokenRequest + "Bearer refresh-ann");
    client->signOut();
    EXPECT_EQ(client->auth(), std::nullopt) << "at once";
    EXPECT_TRUE(isCancelled(only()));
    EXPECT_TRUE(session->awaitCancel(0));
    answer(0, tokenReply("late", 2000));
    EXPECT_EQ(held(), "none");
    list();
    EXPECT_EQ(sent(1), tokenRequest + "none");
}

TEST_F(UserClientUsers, CanSupplyTokensThatAreUsedWithoutARequest) {
    save("kept", 2000);
    EXPECT_EQ(client->auth()->auth.accessToken, "access-kept") << "at once";
    list();
    EXPECT_EQ(sent(0), listRequest + "kept");
}

TEST_F(UserClientUsers, CanSupplyTokensForWaitingOperations) {
    list();
    EXPECT_EQ(sent(0), tokenRequest + "none");
    save("kept", 2000);
    EXPECT_EQ(sent(1), listRequest + "kept");
    EXPECT_TRUE(session->isCancelled(0)) << "its answer would replace them";
    answer(1, noRecords());
    EXPECT_EQ(only().text(), "success");
}

TEST_F(UserClientUsers, CanSupplyExpiredTokensForWaitingOperations) {
    list();
    EXPECT_EQ(sent(0), tokenRequest + "none");
    save("kept", 900);
    EXPECT_EQ(sent(1), tokenRequest + "Bearer refresh-kept");
    answer(1, tokenReply("new", 2000));
    EXPECT_EQ(sent(2), listRequest + "new");
}

TEST_F(UserClientUsers, SuppliedTokensEndTheOperationsOfAnotherUser) {
    save("ann", 2000);
    list();
    EXPECT_EQ(sent(0), listRequest + "ann");
    save("bob", 2000, "u2");
    EXPECT_TRUE(isCancelled(only()));
    EXPECT_EQ(held(), "access-bob");
}

TEST_F(UserClientUsers, RemovingTokensDoesNotAffectRunningOperations) {
    save("ann", 2000);
    list();
    EXPECT_EQ(sent(0), listRequest + "ann");
    client->setAuth(std::nullopt);
    EXPECT_EQ(held(), "none");
    answer(0, noRecords());
    EXPECT_EQ(only().text(), "success");
}

/// The values that a publisher has sent so far. Copies share one list.
template <class T>
class Sent {
public:
    UniqueFunction<void(T)> received() const {
        return [state = state_](T value) {
            const std::lock_guard lock(state->mutex);
            state->values.push_back(std::move(value));
            state->arrived.signal();
        };
    }
    std::vector<T> first(int count) const {
        EXPECT_TRUE(state_->arrived.wait(count));
        const std::lock_guard lock(state_->mutex);
        return state_->values;
    }

private:
    struct State {
        std::mutex mutex;
        std::vector<T> values;
        Event arrived;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

using States = std::vector<SignInState>;

TEST_F(UserClientUsers, ReportTheirStateAndItsChanges) {
    const Sent<SignInState> states;
    const Cancellable subscription = client->signInState().sink(states.received());
    EXPECT_EQ(states.first(1), States{SignInState::signedOut});
    list();
    answer(0, tokenReply("short", 1001));
    EXPECT_EQ(states.first(2).back(), SignInState::signedIn);
    list();
    (void)session->request(2);
    answer(2, reply(401, ""));
    EXPECT_EQ(states.first(3).back(), SignInState::consentNeeded);
    list();
    (void)session->request(4);
    answer(4, tokenReply("new", 2000));
    EXPECT_EQ(states.first(4).back(), SignInState::signedIn);
    client->signOut();
    EXPECT_EQ(states.first(5),
              (States{SignInState::signedOut, SignInState::signedIn, SignInState::consentNeeded,
                      SignInState::signedIn, SignInState::signedOut}));
}

TEST_F(UserClientUsers, ReportTheCurrentStateFirst) {
    save("ann", 2000);
    drain();
    const Sent<SignInState> states;
    const Cancellable subscription = client->signInState().sink(states.received());
    EXPECT_EQ(states.first(1), States{SignInState::signedIn});
}

TEST_F(UserClientUsers, AreNotReportedAgainAfterARefresh) {
    save("ann", 900);
    const Sent<SignInState> states;
    const Cancellable subscription = client->signInState().sink(states.received());
    list();
    answer(0, tokenReply("new", 2000));
    (void)session->request(1);
    client->signOut();
    EXPECT_EQ(states.first(2), (States{SignInState::signedIn, SignInState::signedOut}));
}

TEST_F(UserClientUsers, ReportEachSetOfTokensToSubscribers) {
    using Auths = std::vector<std::optional<UserAuth>>;
    const Sent<std::optional<UserAuth>> auths;
    const Cancellable subscription = client->authChanges().sink(auths.received());
    save("ann", 2000);
    list();
    answer(0, reply(200, R"({"data":[],)" + authMember("rotated", 3000) + "}"));
    client->signOut();
    EXPECT_EQ(auths.first(4), (Auths{std::nullopt, UserAuth{.uid = "u1", .auth = tokens("ann", 2000)},
                                     UserAuth{.uid = "u1", .auth = tokens("rotated", 3000)}, std::nullopt}));
}

TEST_F(UserClientUsers, ReplacingOthersAreReportedOnce) {
    using Auths = std::vector<std::optional<UserAuth>>;
    const UserAuth ann{.uid = "u1", .auth = tokens("ann", 2000)};
    const UserAuth bob{.uid = "u2", .auth = tokens("bob", 2000)};
    const Sent<std::optional<UserAuth>> auths;
    const Cancellable subscription = client->authChanges().sink(auths.received());
    for (const auto& auth : Auths{ann, bob, std::nullopt}) client->setAuth(auth);
    EXPECT_EQ(auths.first(4), (Auths{std::nullopt, ann, bob, std::nullopt}));
}

TEST_F(UserClientUsers, AreNotReportedAfterTheSubscriptionIsDestroyed) {
    const Sent<SignInState> dropped;
    const Sent<SignInState> kept;
    Cancellable subscription = client->signInState().sink(dropped.received());
    const Cancellable other = client->signInState().sink(kept.received());
    (void)kept.first(1);
    subscription = Cancellable();
    save("ann", 2000);
    EXPECT_EQ(kept.first(2).size(), 2U);
    EXPECT_EQ(dropped.first(1).size(), 1U);
}

TEST_F(UserClientUsers, SubscribingDoesNotKeepTheClientAlive) {
    const std::weak_ptr<detail::UserSession> kept = UserClientProbe::session(*client).weak_from_this();
    const Sent<SignInState> states;
    const Cancellable subscription = client->signInState().sink(states.received());
    (void)states.first(1);
    drain();
    client.reset();
    EXPECT_TRUE(kept.expired());
}

}  // namespace
}  // namespace VanticRestKit::test
