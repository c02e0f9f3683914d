// Unit tests of host code with GoogleTest: no socket, no second thread, no waiting.

#include <gtest/gtest.h>
#include <VanticRestKit/Testing/ManualClock.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/Testing/ShowBuilder.h>

#include "ShowPage.h"

using namespace VanticRestKit::Testing;

class ShowPageTest : public ::testing::Test {
protected:
    ManualExecutor executor;
    ScriptedService service{executor};
    Scripted<HostContext> context{service};
    ShowPage page{context, executor.queue()};
};

TEST_F(ShowPageTest, ShowsTheTitleAndTheNumberOfEpisodes) {
    service.expect("GET /v2/show/night-ferry")
        .answer(aShow().titled("Night Ferry").withSeries(2).episodes(6));
    page.open("night-ferry");
    executor.runAll();
    EXPECT_EQ(page.text, "Night Ferry, 12 episodes");
    EXPECT_EQ(service.problems(), "");
}

TEST_F(ShowPageTest, SaysThatThereIsNoSuchShow) {
    service.on("/v2/show/*").answer(Answer::status(404));
    page.open("unknown");
    executor.runAll();
    EXPECT_EQ(page.text, "There is no such show.");
}

TEST_F(ShowPageTest, AsksToTryAgainWhenTheDeviceIsOffline) {
    service.on("/v2/show/*").answer(Answer::offline());
    page.open("night-ferry");
    executor.runAll();
    EXPECT_EQ(page.text, "Please try again.");
}

TEST_F(ShowPageTest, GivesUpAfterTenSeconds) {
    ManualClock clock;
    service.on("/v2/show/*").answer(Answer(aShow()).held());
    page.open("night-ferry");
    clock.advance(std::chrono::seconds(9));
    executor.runAll();
    EXPECT_EQ(page.text, "Loading ...");
    clock.advance(std::chrono::seconds(1));
    executor.runAll();
    EXPECT_EQ(page.text, "Please try again.");
}

TEST_F(ShowPageTest, ShowsTheLastShowThatWasOpened) {
    service.on("/v2/show/first").answer(Answer(aShow().titled("First")).held());
    service.on("/v2/show/second").answer(aShow().titled("Second").asFilm());
    page.open("first");
    page.open("second");
    EXPECT_TRUE(service.asked().front().wasCancelled);
    executor.runAll();
    EXPECT_EQ(page.text, "Second, 0 episodes");
}
