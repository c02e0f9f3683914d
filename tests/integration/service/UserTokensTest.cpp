#include "UserService.h"

#include <VanticRestKit/Core/NetworkError.h>

#include <thread>

namespace VanticRestKit::test {

namespace {

using Kind = TrelvoError::Kind;

/// A user with a separate client.
class SampleServiceTokens : public ::testing::Test {
protected:
    /// The `Authorization` header of each request to that path.
    std::vector<std::optional<std::string>> shown(const std::string& path) const {
        std::vector<std::optional<std::string>> values;
        for (const auto& request : service.log()) {
            if (request["path"] == path) values.push_back(loggedHeader(request, "Authorization"));
        }
        return values;
    }
    void fail(const char* path, const char* fault, nlohmann::json details = nlohmann::json::object()) {
        details["path"] = path;
        details["fault"] = fault;
        service.addFault(details);
    }

    SampleService service;
    UserContext context{service.baseURL()};
    Trelvo client = newClient();
    User ann{client, context};
};

/// The status with which the service failed an operation, 0 if it did not.
template <class T>
std::int64_t statusOf(const Result<T, TrelvoError>& outcome) {
    if (outcome || outcome.error().kind() != Kind::general) return 0;
    const auto* loading = outcome.error().underlyingError()->template as<LoaderError>();
    if (loading == nullptr || !loading->underlyingError()) return 0;
    const auto* network = loading->underlyingError()->template as<NetworkError>();
    return network != nullptr ? network->errorCode() : 0;
}

TEST_F(SampleServiceTokens, AreRequestedOnceWhileTheyAreValid) {
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(ann.saved());
    EXPECT_EQ(shown("v2/token").size(), 1U);
    EXPECT_EQ(shown("v2/token")[0], std::nullopt) << "the first request has no token";
}

TEST_F(SampleServiceTokens, AreRefreshedByEachOperationIfTheyExpireQuickly) {
    setTokens(service, {{"seconds", 4}, {"rotation", "never"}});
    EXPECT_TRUE(ann.saved());
    const std::string first = client.auth()->refreshToken;
    EXPECT_TRUE(ann.saved());
    EXPECT_EQ(shown("v2/token"), (std::vector<std::optional<std::string>>{std::nullopt, "Bearer " + first}));
    EXPECT_EQ(shown("v2/saved/watchlist/show")[1], "Bearer " + client.auth()->accessToken);
}

TEST_F(SampleServiceTokens, OfAResponseAreUsedAfterwards) {
    setTokens(service, {{"rotation", "always"}});
    EXPECT_TRUE(ann.saved());
    const std::string rotated = client.auth()->accessToken;
    EXPECT_NE("Bearer " + rotated, shown("v2/saved/watchlist/show")[0]);
    EXPECT_TRUE(ann.saved());
    EXPECT_EQ(shown("v2/saved/watchlist/show")[1], "Bearer " + rotated);
}

TEST_F(SampleServiceTokens, OfAProgressUpdateAreIgnored) {
    setTokens(service, {{"rotation", "always"}});
    EXPECT_TRUE(ann.watch(11, "HL0101", 1, false));
    const auto before = client.auth();
    EXPECT_TRUE(ann.history(1));
    EXPECT_EQ(client.auth(), before);
    EXPECT_EQ(shown("v2/history/video")[0], "Bearer " + before->accessToken);
}

TEST_F(SampleServiceTokens, RefusedToAUserWithoutTokensReportMissingConsent) {
    setTokens(service, {{"refused", {"ann"}}});
    const auto outcome = ann.saved();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), Kind::accountReconsentRequired);
    EXPECT_EQ(service.log().size(), 1U);
    setTokens(service, {{"refused", nlohmann::json::array()}});
    EXPECT_TRUE(ann.saved()) << "the next operation requests a token again";
    EXPECT_FALSE(client.authError());
}

TEST_F(SampleServiceTokens, RefusedToAUserWithOldTokensLetTheServiceRejectThose) {
    setTokens(service, {{"seconds", 4}});
    EXPECT_TRUE(ann.saved());
    setTokens(service, {{"refused", {"ann"}}});
    service.control("POST", "/_control/tokens/expire");
    EXPECT_EQ(statusOf(ann.saved()), 401);
    ASSERT_TRUE(client.authError());
    EXPECT_EQ(client.authError()->kind(), Kind::accountReconsentRequired);
    client.clearAuth();
    const auto outcome = ann.saved();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), Kind::accountReconsentRequired);
}

TEST_F(SampleServiceTokens, FailingToArriveReportTheCauseAndAreRequestedAgain) {
    fail("v2/token", "status", {{"status", 503}});
    const auto refused = ann.saved();
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().kind(), Kind::noAuthToken);
    fail("v2/token", "malformed");
    const auto malformed = ann.saved();
    ASSERT_FALSE(malformed);
    EXPECT_EQ(malformed.error().underlyingError()->as<LoaderError>()->kind(),
              LoaderError::Kind::failedToDecode);
    EXPECT_TRUE(ann.saved());
}

TEST_F(SampleServiceTokens, WithoutAnExpiryAreIgnored) {
    fail("v2/token", "null", {{"at", "/auth/expiry"}});
    const auto outcome = ann.history(1);
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().message(),
              "In Trelvo.listRecentVideos(), no saved auth data and no authError found");
    EXPECT_FALSE(client.auth());
}

TEST_F(SampleServiceTokens, BlockTheirCallerUntilTheyArrive) {
    fail("v2/token", "delay", {{"seconds", 0.3}});
    const auto began = std::chrono::steady_clock::now();
    client.deleteHistory({.completionHandler = Trelvo::Completion<void>([](Result<void, TrelvoError>) {})},
                         context);
    EXPECT_GE(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(290));
    logOf(service, 2);
}

TEST_F(SampleServiceTokens, AreRequestedByEachOfManyThreadsAndTheLastAreKept) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([this, i] { EXPECT_TRUE(ann.save(i)); });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(ann.saved()->size(), 8U);
    EXPECT_LE(shown("v2/token").size(), 8U);
    EXPECT_TRUE(client.auth());
}

TEST_F(SampleServiceTokens, AreNotRequestedWithoutAUser) {
    EXPECT_TRUE(ann.saved());
    service.clearLog();
    context.user = std::nullopt;
    const auto outcome = ann.saved();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), Kind::noUid);
    EXPECT_EQ(service.log().size(), 0U);
}

TEST_F(SampleServiceTokens, ThatExpireInBetweenFailTheOperation) {
    fail("v2/saved/watchlist/show", "expiredToken");
    EXPECT_EQ(statusOf(ann.saved()), 401);
    EXPECT_TRUE(ann.saved());
}

TEST_F(SampleServiceTokens, AreKeptAfterA404) {
    EXPECT_TRUE(ann.deleteHistory()) << "a 404 counts as deleted";
    EXPECT_EQ(statusOf(ann.unsave(1)), 404);
    EXPECT_EQ(statusOf(ann.update({})), 404);
    EXPECT_EQ(statusOf(ann.deleteProfile()), 404);
    fail("v2/history/video/recent", "status", {{"status", 404}});
    EXPECT_EQ(statusOf(ann.recent(1, false)), 404);
}

TEST_F(SampleServiceTokens, OfAResponseWithoutRecordsAreKept) {
    setTokens(service, {{"rotation", "always"}});
    fail("v2/saved/watchlist/show", "null", {{"at", "/data"}});
    const auto outcome = ann.saved();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), Kind::unableToRetrieveSavedData);
    EXPECT_NE("Bearer " + client.auth()->accessToken, shown("v2/saved/watchlist/show")[0]);
}

TEST_F(SampleServiceTokens, AreKeptEvenIfTheRecordsDoNotDecode) {
    EXPECT_TRUE(ann.watch(11, "HL0101", 1, false));
    fail("v2/history/video", "null", {{"at", "/data/0/progress"}});
    const auto outcome = ann.history(5);
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().kind(), Kind::unableToRetrieveHistoryData);
    fail("v2/history/video", "unknownEnum", {{"at", "/data/0/source"}});
    const auto standing = ann.history(5);
    ASSERT_TRUE(standing);
    EXPECT_FALSE(standing->front().source);
}

}  // namespace

}  // namespace VanticRestKit::test
