// Operations that wait for a token on the queue that must deliver it.

#include <Core/RecordingObserver.h>
#include <trelvo/Client.h>

namespace VanticRestKit::test {
namespace {

using Saved = std::vector<SavedData>;

/// A context of the user data service that is observed.
using ObservedUser = Observed<UserContext>;

void list(Trelvo& trelvo, const TrelvoContext& context) {
    trelvo.listWatchlistShowIds({.completionHandler = completion<Saved>([](Outcome) {})}, context);
}

class TrelvoEndlessWait : public Client {
protected:
    TrelvoEndlessWait() { observed.session = session; }

    /// Calls an operation in a block of the session's queue, and ends its wait.
    void callOnTheQueueOfTheSession(std::size_t wait) {
        const Event returned;
        session->queue().async([this, returned] {
            list(*trelvo, observed);
            returned.signal();
        });
        waits.awaited(wait).leave();
        ASSERT_TRUE(returned.wait());
    }

    ObservedUser observed;
};

}  // namespace

TEST_F(TrelvoEndlessWait, IsReportedOnceBeforeItBegins) {
    callOnTheQueueOfTheSession(0);
    EXPECT_EQ(observed.recorder->endless(), std::vector<std::string>{"listWatchlistShowIds"});
    callOnTheQueueOfTheSession(1);
    EXPECT_EQ(observed.recorder->endless().size(), 1U);
}

TEST_F(TrelvoEndlessWait, IsReportedByTheFirstContextThatHasAnObserver) {
    const auto recorder = observed.recorder;
    observed.recorder = nullptr;
    callOnTheQueueOfTheSession(0);
    observed.recorder = recorder;
    callOnTheQueueOfTheSession(1);
    EXPECT_EQ(recorder->endless().size(), 1U);
}

TEST_F(TrelvoEndlessWait, IsNotReportedIfAnotherQueueDeliversTheToken) {
    const Event returned = onItsOwnThread([this] { list(*trelvo, observed); });
    session->answer(0, tokenReply("new", 2000));
    ASSERT_TRUE(returned.wait());
    EXPECT_TRUE(observed.recorder->endless().empty());
}

TEST_F(TrelvoEndlessWait, IsNotReportedIfTheTokenIsGood) {
    saveGoodTokens();
    const Event returned;
    session->queue().async([this, returned] {
        list(*trelvo, observed);
        returned.signal();
    });
    ASSERT_TRUE(returned.wait());
    EXPECT_TRUE(observed.recorder->endless().empty());
}

#ifndef NDEBUG
TEST(TrelvoEndlessWaitDeathTest, FailsAnAssertionInADebugBuildOfTheLibrary) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto waitForEver = [] {
        const auto session = std::make_shared<ScriptedSession>();
        UserContext context;
        context.session = session;
        Trelvo trelvo(TrelvoProbe::make([] { return 1000.0; }));
        session->queue().async([&] { list(trelvo, context); });
        const Event never;
        (void)never.wait();
    };
    EXPECT_DEATH(waitForEver(), "waits for a token of the same queue");
}
#endif

}  // namespace VanticRestKit::test
