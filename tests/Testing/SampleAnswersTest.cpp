#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/Testing/SampleAnswers.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/trelvo/UserClient.h>

namespace VanticRestKit::Testing {
namespace {

TEST(SampleAnswersTest, AnswersAllRequestsOfAHostWithoutASocket) {
    ManualExecutor executor;
    ScriptedService service(executor);
    service.on("/**").answerBy(SampleAnswers());
    const Scripted<TestContext> context(service);
    std::optional<Category> home;
    const auto resource = Endpoint::Home(context);
    const auto load =
        resource->start({}, [&](Result<Category, LoaderError> result) { home = std::move(result).value(); });
    executor.runAll();
    ASSERT_TRUE(home);
    EXPECT_FALSE(home->collections.empty());
}

TEST(SampleAnswersTest, UnknownResourcesAreNotFound) {
    EXPECT_EQ(SampleAnswers().ask("GET", "/v2/nothing").status(), 404);
}

TEST(SampleAnswersTest, PicturesAreDrawn) {
    const Answer answer = SampleAnswers().ask("GET", "/pictures/video/HL0101/landscape.svg");
    EXPECT_EQ(answer.status(), 200);
    EXPECT_EQ(answer.headers().at("Content-Type"), "image/svg+xml");
    EXPECT_TRUE(answer.body()->view().starts_with("<svg")) << answer.body()->view();
}

TEST(SampleAnswersTest, KeepsWhatAUserSaves) {
    ManualExecutor executor;
    ScriptedService service(executor);
    service.on("/**").answerBy(SampleAnswers());
    const auto client = UserClient::make(std::make_shared<Scripted<TestContext>>(service));
    std::optional<std::size_t> saved;
    const auto add =
        client->addWatchlistShow({.showId = 11}).start({.on = executor.queue()}, [&](auto result) {
            saved = result ? result->size() : 0;
        });
    EXPECT_TRUE(executor.runUntil([&] { return saved.has_value(); }));
    EXPECT_EQ(saved, 1U);
    saved.reset();
    const auto list = client->listWatchlistShowIds().start(
        {.on = executor.queue()}, [&](auto result) { saved = result ? result->size() : 0; });
    EXPECT_TRUE(executor.runUntil([&] { return saved.has_value(); }));
    EXPECT_EQ(saved, 1U);
    EXPECT_EQ(service.countOf("GET /v2/token"), 1U);
}

}  // namespace
}  // namespace VanticRestKit::Testing
