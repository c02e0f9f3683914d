// How the operations of a user client end: on which queue they deliver, and what ends them early.

#include <VanticRestKit/platform/async/Task.h>

#include <trelvo/UserClientFixture.h>
#include <chrono>
#include <limits>
#include <stop_token>

namespace VanticRestKit::test {
namespace {

using namespace std::chrono_literals;

class UserClientEnds : public UserClientFixture {};

TEST_F(UserClientEnds, NeverDeliverInsideTheCall) {
    context->user = std::nullopt;
    std::mutex held;
    const Event delivered;
    {
        // A completion inside the call would deadlock on this lock.
        const std::lock_guard lock(held);
        handles.push_back(client->listWatchlistShowIds().start({}, [&](const Result<Saved, TrelvoError>&) {
            { const std::lock_guard inCompletion(held); }
            delivered.signal();
        }));
    }
    EXPECT_TRUE(delivered.wait());
}

TEST_F(UserClientEnds, DeliverOnTheQueueOfTheOptions) {
    const DispatchQueue queue("host");
    save("good", 2000);
    const Event delivered;
    std::vector<bool> isOnQueue;
    const auto note = [&](const Result<Saved, TrelvoError>&) {
        isOnQueue.push_back(queue.isCurrent());
        delivered.signal();
    };
    handles.push_back(client->listWatchlistShowIds().start({.on = queue}, note));
    answer(0, noRecords());
    ASSERT_TRUE(delivered.wait(1));
    handles.push_back(client->listWatchlistShowIds().start({.on = queue}, note));
    handles.back().cancel();
    ASSERT_TRUE(delivered.wait(2));
    EXPECT_EQ(isOnQueue, (std::vector<bool>{true, true}));
}

TEST_F(UserClientEnds, CanStartOthersInACompletionOnTheDelegateQueue) {
    const Event done;
    handles.push_back(client->listWatchlistShowIds().start(
        {.on = session->queue()}, [&](const Result<Saved, TrelvoError>&) {
            // The token has expired by now, so this operation needs a
            // token request whose response arrives on this queue.
            *now = 5000;
            list({.on = session->queue()});
            done.signal();
        }));
    answer(0, tokenReply("short", 2000));
    answer(1, noRecords());
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(sent(2), tokenRequest + "Bearer refresh-short");
    answer(2, tokenReply("new", 9000));
    EXPECT_EQ(sent(3), listRequest + "new");
    answer(3, noRecords());
    EXPECT_EQ(only().text(), "success");
}

TEST_F(UserClientEnds, CanBeCancelledIndividuallyWhileWaitingForAToken) {
    const Outcomes first = listSeparately();
    const Outcomes second = listSeparately();
    EXPECT_EQ(sentCount(), 1U);
    handles[0].cancel();
    EXPECT_TRUE(isCancelled(only(first)));
    drain();
    EXPECT_FALSE(session->isCancelled(0)) << "the other still waits";
    answer(0, tokenReply("new", 2000));
    answer(1, noRecords());
    EXPECT_EQ(only(second).text(), "success");
    EXPECT_EQ(sentCount(), 2U);
}

TEST_F(UserClientEnds, CancelTheTokenRequestWhenNoneWaitsForIt) {
    for (int i = 0; i < 3; ++i) list();
    EXPECT_EQ(sentCount(), 1U);
    handles[0].cancel();
    handles[1] = Cancellable();
    drain();
    EXPECT_FALSE(session->isCancelled(0));
    handles[2].cancel();
    EXPECT_TRUE(session->awaitCancel(0));
    list();
    EXPECT_EQ(sent(1), tokenRequest + "none") << "the next operation requests a token again";
}

TEST_F(UserClientEnds, CanBeCancelledDuringTheirRequest) {
    save("good", 2000);
    list();
    EXPECT_EQ(sent(0), listRequest + "good");
    handles[0].cancel();
    EXPECT_TRUE(isCancelled(only()));
    EXPECT_TRUE(session->awaitCancel(0));
    answer(0, reply(200, R"({"data":[],)" + authMember("late", 3000) + "}"));
    EXPECT_EQ(outcomes.count(), 1U);
}

TEST_F(UserClientEnds, DeliverNothingAfterTheirHandleIsDestroyed) {
    save("good", 2000);
    list();
    EXPECT_EQ(sent(0), listRequest + "good");
    handles.clear();
    EXPECT_TRUE(session->awaitCancel(0));
    EXPECT_TRUE(outcomes.dropped().wait());
    EXPECT_EQ(outcomes.count(), 0U);
}

TEST_F(UserClientEnds, CanBeCancelledByAStopTokenBeforeAnythingIsSent) {
    std::stop_source stop;
    stop.request_stop();
    list({.stop = stop.get_token()});
    EXPECT_TRUE(isCancelled(only()));
    EXPECT_EQ(sentCount(), 0U);
}

TEST_F(UserClientEnds, CanBeCancelledByAStopTokenWhileTheyWait) {
    std::stop_source stop;
    list({.stop = stop.get_token()});
    EXPECT_EQ(sent(0), tokenRequest + "none");
    stop.request_stop();
    EXPECT_TRUE(isCancelled(only()));
    EXPECT_TRUE(session->awaitCancel(0));
}

TEST_F(UserClientEnds, ObserveTheirDeadlineWhileWaitingForAToken) {
    const Outcomes unhurried = listSeparately();
    EXPECT_EQ(sent(0), tokenRequest + "none");
    list({.deadline = 5ms});
    const Outcome outcome = only();
    EXPECT_TRUE(outcome.is(Kind::general));
    EXPECT_EQ(transportCode(outcome), -1001);
    EXPECT_EQ(unhurried.count(), 0U);
}

TEST_F(UserClientEnds, ReportADeadlineMissedWithoutATokenToTheFailureHook) {
    const Event reported;
    std::optional<std::string> authorization;
    context->log = [&](const Error& error) {
        authorization = error.as<NetworkError>()->request()->value("Authorization");
        reported.signal();
    };
    list({.deadline = 0s});
    ASSERT_TRUE(reported.wait());
    EXPECT_EQ(authorization, std::nullopt);
    EXPECT_EQ(transportCode(only()), -1001);
}

TEST_F(UserClientEnds, FailAsUnknownIfTheContextBuildsNoDataRequest) {
    context->buildsDataRequest = false;
    list();
    EXPECT_EQ(
        only().text(),
        "Unknown error: In UserClient.listWatchlistShowIds(), the context built no request for the data");
    EXPECT_EQ(sentCount(), 0U);
}

TEST_F(UserClientEnds, FailAsUnknownIfTheContextBuildsNoTokenRequest) {
    context->buildsTokenRequest = false;
    list();
    EXPECT_EQ(
        only().text(),
        "Unknown error: In UserClient.listWatchlistShowIds(), the context built no request for a token");
    EXPECT_EQ(sentCount(), 0U);
}

TEST_F(UserClientEnds, FailAsUnknownForANumberBeyondTheSignedRange) {
    handles.push_back(client->deleteShow({.showId = std::numeric_limits<std::uint64_t>::max()})
                          .start({}, completion<void>(outcomes.completed())));
    EXPECT_EQ(only().text(),
              "Unknown error: In Trelvo.deleteShow(), showId is beyond the range of a signed number");
    EXPECT_EQ(sentCount(), 0U);
}

TEST_F(UserClientEnds, ContinueWithTheOldTokenIfTheContextBuildsNoTokenRequest) {
    context->buildsTokenRequest = false;
    save("old", 900);
    list();
    EXPECT_EQ(sent(0), listRequest + "old");
}

TEST_F(UserClientEnds, CanBeCancelledIfTheContextBuiltNoRequest) {
    context->buildsDataRequest = false;
    std::stop_source stop;
    stop.request_stop();
    list({.stop = stop.get_token()});
    EXPECT_TRUE(only().is(Kind::general));
    EXPECT_EQ(only().loaderError().underlyingError()->code(), -999);
}

TEST_F(UserClientEnds, CanBeAwaitedAndWaitedFor) {
    save("good", 2000);
    const auto future =
        std::make_shared<LoadFuture<Result<Saved, TrelvoError>>>(client->listWatchlistShowIds().future());
    answer(0, noRecords());
    EXPECT_TRUE(future->get());
    const auto awaiting = [this]() -> Task<Result<Saved, TrelvoError>> {
        const auto listing = client->listWatchlistShowIds();
        co_return co_await listing.value({.deadline = 1h});
    };
    const Event answered = session->postWhenStarted(1, noRecords());
    EXPECT_TRUE(blockOn(awaiting()));
    EXPECT_TRUE(answered.wait());
}

TEST_F(UserClientEnds, StartAgainForEachSubscriptionOfTheirPublisher) {
    save("good", 2000);
    const auto publisher = client->deleteShow({.showId = 42}).publisher();
    const Event ended;
    for (std::size_t i = 0; i < 2; ++i) {
        handles.push_back(publisher.sink([](std::monostate) {},
                                         [&](const Result<void, TrelvoError>& end) {
                                             EXPECT_TRUE(end);
                                             ended.signal();
                                         }));
        answer(i, reply(200, "{}"));
    }
    EXPECT_TRUE(ended.wait(2));
}

/// The outcome of a wait on `queue`.
std::string waitOn(const DispatchQueue& queue, const UserClient& client) {
    const Event done;
    std::string text;
    // GCC 12 with sanitizers reports the empty options of a plain wait() as uninitialized.
    const LoadOptions options{.deadline = 1h};
    queue.async([&] {
        const auto result = client.listWatchlistShowIds().wait(options);
        text = result ? "success" : result.error().localizedDescription();
        done.signal();
    });
    EXPECT_TRUE(done.wait());
    return text;
}

TEST_F(UserClientEnds, FailAtOnceIfWaitedForOnAQueueThatTheyNeed) {
    const auto& clientSession = UserClientProbe::session(*client);
    for (const DispatchQueue& queue : {session->queue(), clientSession.queue(), clientSession.deliveries()}) {
        EXPECT_NE(waitOn(queue, *client).find("would never end"), std::string::npos) << queue.label();
    }
}

TEST_F(UserClientEnds, CompleteAfterTheClientIsDestroyed) {
    list();
    EXPECT_EQ(sent(0), tokenRequest + "none");
    const auto later = client->listWatchlistShowIds();
    client.reset();
    answer(0, tokenReply("new", 2000));
    EXPECT_EQ(sent(1), listRequest + "new");
    answer(1, noRecords());
    EXPECT_EQ(only().text(), "success");
    handles.push_back(later.start({}, [](const Result<Saved, TrelvoError>&) {}));
    EXPECT_EQ(sent(2), listRequest + "new") << "the tokens are kept while there is an operation";
}

class MortalContext final : public UserContext {
public:
    explicit MortalContext(Event destroyed) : destroyed_(std::move(destroyed)) {}
    ~MortalContext() override { destroyed_.signal(); }

private:
    const Event destroyed_;
};

TEST_F(UserClientEnds, ReleaseEverythingOfADestroyedClient) {
    const Event destroyed;
    auto mortal = std::make_shared<MortalContext>(destroyed);
    mortal->session = session;
    auto other = UserClient::make(mortal);
    handles.push_back(other->listWatchlistShowIds().start({}, completion<Saved>(outcomes.completed())));
    EXPECT_EQ(sent(0), tokenRequest + "none");
    other.reset();
    handles.clear();
    EXPECT_TRUE(session->awaitCancel(0));
    session->abandon();
    mortal.reset();
    EXPECT_TRUE(destroyed.wait());
}

}  // namespace
}  // namespace VanticRestKit::test
