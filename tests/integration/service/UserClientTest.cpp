// A user client with the sample service, whose tokens expire and are rejected.

#include "UserService.h"

#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/trelvo/UserClient.h>

#include <chrono>

namespace VanticRestKit::test {

namespace {

using namespace std::chrono_literals;
using Shows = Result<std::vector<SavedData>, TrelvoError>;

class SampleServiceUserClient : public ::testing::Test {
protected:
    /// The number of requests to that path that the service has received.
    std::size_t countOf(const std::string& path) const {
        std::size_t count = 0;
        for (const auto& request : service.log()) count += request["path"] == path ? 1 : 0;
        return count;
    }
    static constexpr const char* saved = "v2/saved/watchlist/show";

    SampleService service;
    std::shared_ptr<UserContext> context = std::make_shared<UserContext>(service.baseURL());
    std::shared_ptr<UserClient> client = UserClient::make(context);
};

TEST_F(SampleServiceUserClient, SendsOneTokenRequestHoweverManyOperationsWait) {
    service.addFault({{"path", "v2/token"}, {"fault", "delay"}, {"seconds", 0.2}});
    constexpr std::size_t count = 1000;
    std::vector<LoadFuture<Shows>> shows;
    for (std::size_t i = 0; i < count; ++i) shows.push_back(client->listWatchlistShowIds().future());
    for (LoadFuture<Shows>& each : shows) EXPECT_TRUE(each.get());
    EXPECT_EQ(countOf("v2/token"), 1U);
    EXPECT_EQ(countOf(saved), count);
}

TEST_F(SampleServiceUserClient, RequestsATokenForEachOperationIfTokensExpireQuickly) {
    setTokens(service, {{"seconds", 4}, {"rotation", "never"}});
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(client->listWatchlistShowIds().wait());
    EXPECT_EQ(countOf("v2/token"), 3U);
}

TEST_F(SampleServiceUserClient, RecoversFromRevokedTokens) {
    EXPECT_TRUE(client->addWatchlistShow({.showId = 1}).wait());
    service.control("POST", "/_control/tokens/expire");
    const Shows shows = client->listWatchlistShowIds().wait();
    ASSERT_TRUE(shows) << shows.error().errorDescription();
    EXPECT_EQ(shows->size(), 1U);
    EXPECT_EQ(countOf("v2/token"), 2U);
    EXPECT_EQ(countOf(saved), 2U) << "refused, then repeated";
}

TEST_F(SampleServiceUserClient, PassesTokensToAnotherClient) {
    EXPECT_TRUE(client->listWatchlistShowIds().wait());
    const auto next = UserClient::make(context);
    next->setAuth(client->auth());
    EXPECT_TRUE(next->listWatchlistShowIds().wait());
    EXPECT_EQ(countOf("v2/token"), 1U);
}

TEST_F(SampleServiceUserClient, ChangesItsUser) {
    EXPECT_TRUE(client->addWatchlistShow({.showId = 1}).wait());
    context->user = "bob";
    const Shows shows = client->listWatchlistShowIds().wait();
    ASSERT_TRUE(shows);
    EXPECT_TRUE(shows->empty());
    EXPECT_EQ(client->auth()->uid, "bob");
}

TEST_F(SampleServiceUserClient, TimesOutWhileTheTokenIsDelayed) {
    service.addFault({{"path", "v2/token"}, {"fault", "delay"}, {"seconds", 30}});
    const Shows shows = client->listWatchlistShowIds().wait({.deadline = 50ms});
    ASSERT_FALSE(shows);
    EXPECT_EQ(shows.error().kind(), TrelvoError::Kind::general);
}

Task<bool> watchAndDelete(UserClient& client) {
    const auto update =
        client.updateVideoProgress({.showId = 11, .houseNumber = "HL0101", .progress = 60, .isDone = false});
    const auto records = co_await update.value();
    const auto created = client.createSubprofile({.dataset = Dictionary{{"displayName", "Ann"}}});
    const auto profile = co_await created.value();
    const auto deletion = client.deleteSubprofile();
    const auto deleted = co_await deletion.value();
    const auto read = client.getSubprofiles({.includePrivateData = true, .includeFamilyData = false});
    const auto after = co_await read.value();
    co_return records && records->size() == 1 && profile&& deleted && !after;
}

TEST_F(SampleServiceUserClient, RunsOneOperationAfterTheOtherInACoroutine) {
    EXPECT_TRUE(blockOn(watchAndDelete(*client)));
    EXPECT_EQ(countOf("v2/token"), 1U);
}

}  // namespace

}  // namespace VanticRestKit::test
