#include "UserClient.h"

#include <chrono>

namespace VanticRestKit::test {

namespace {

double now() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

void set(const SampleService& service, const nlohmann::json& settings) {
    EXPECT_FALSE(service.control("POST", "/_control/tokens", settings.dump()).is_null()) << settings;
}

/// The status of a token request with this Authorization header, or without one if it is empty.
int tokenStatus(const SampleService& service, const std::string& authorization,
                const std::string& query = "UID=ann&source=lumeno") {
    httplib::Headers headers;
    if (!authorization.empty()) headers.emplace("Authorization", authorization);
    return clientOf(service).Get("/v2/token?" + query, headers)->status;
}

TEST(SampleTokens, AreIssuedToAnyUserWithTheirExpiryInSeconds) {
    const SampleService service;
    const auto auth = get(service, "/v2/token?UID=ann&source=lumeno")["auth"];
    EXPECT_EQ(auth["token_type"], "Bearer");
    EXPECT_TRUE(auth["access_token"].is_string());
    EXPECT_NE(auth["access_token"], auth["refresh_token"]);
    EXPECT_NEAR(auth["expiry"].get<double>(), now() + 3600, 60);
}

TEST(SampleTokens, LastAsLongAsConfigured) {
    const SampleService service;
    set(service, {{"seconds", 7}});
    EXPECT_NEAR(get(service, "/v2/token?UID=ann")["auth"]["expiry"].get<double>(), now() + 7, 5);
    EXPECT_EQ(service.control("GET", "/_control/tokens")["seconds"], 7);
}

TEST(SampleTokens, AreRenewedOnlyForARefreshTokenOfTheUser) {
    const SampleService service;
    const std::string refresh = get(service, "/v2/token?UID=ann")["auth"]["refresh_token"];
    const std::string access = get(service, "/v2/token?UID=ann")["auth"]["access_token"];
    EXPECT_EQ(tokenStatus(service, "Bearer " + refresh), 200);
    EXPECT_EQ(tokenStatus(service, "Bearer " + refresh), 200) << "two refreshes may overlap";
    EXPECT_EQ(tokenStatus(service, "Bearer " + access), 401);
    EXPECT_EQ(tokenStatus(service, "Bearer made-up"), 401);
    EXPECT_EQ(tokenStatus(service, "Bearer " + refresh, "UID=bob"), 401);
    EXPECT_EQ(tokenStatus(service, "Basic of-the-host"), 200) << "only a bearer token is checked";
}

TEST(SampleTokens, AreRefusedToTheConfiguredUsers) {
    const SampleService service;
    set(service, {{"refused", {"ann"}}});
    EXPECT_EQ(tokenStatus(service, ""), 401);
    EXPECT_EQ(tokenStatus(service, "", "UID=bob"), 200);
    set(service, {{"refused", nlohmann::json::array()}});
    EXPECT_EQ(tokenStatus(service, ""), 200);
}

TEST(SampleTokens, AreNotIssuedWithoutAUser) {
    const SampleService service;
    EXPECT_EQ(tokenStatus(service, "", "source=lumeno"), 400);
}

TEST(SampleTokens, AreRequiredForDataAndMustBelongToTheUser) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("GET", "saved");
    EXPECT_EQ(ann.status, 200);
    const auto client = [&](const std::string& uid, const std::string& token) {
        return clientOf(service).Get("/v2/saved?UID=" + uid, {{"Authorization", token}})->status;
    };
    EXPECT_EQ(client("ann", "Bearer " + ann.token()), 200);
    EXPECT_EQ(client("bob", "Bearer " + ann.token()), 401);
    EXPECT_EQ(client("ann", "Bearer other"), 401);
    EXPECT_EQ(client("ann", ann.token()), 401);
    EXPECT_EQ(clientOf(service).Get("/v2/saved?UID=ann")->status, 401);
    EXPECT_EQ(clientOf(service).Get("/v2/saved", {{"Authorization", "Bearer " + ann.token()}})->status, 400);
}

TEST(SampleTokens, AreRejectedAfterTheirExpiryUnlikeTheirRefreshTokens) {
    const SampleService service;
    const auto auth = get(service, "/v2/token?UID=ann")["auth"];
    service.control("POST", "/_control/tokens/expire");
    httplib::Headers access{{"Authorization", "Bearer " + auth["access_token"].get<std::string>()}};
    EXPECT_EQ(clientOf(service).Get("/v2/saved?UID=ann", access)->status, 401);
    EXPECT_EQ(tokenStatus(service, "Bearer " + auth["refresh_token"].get<std::string>()), 200);
    set(service, {{"seconds", -1}});
    UserClient bob(service, "bob");
    bob.ask("GET", "saved");
    EXPECT_EQ(bob.status, 401);
}

TEST(SampleTokens, AreRotatedInResponsesIfConfigured) {
    const SampleService service;
    UserClient ann(service, "ann");
    EXPECT_FALSE(ann.ask("GET", "saved").contains("auth")) << "more than half of its time is left";
    set(service, {{"rotation", "always"}});
    const auto auth = ann.ask("GET", "saved")["auth"];
    EXPECT_NE(auth["access_token"], ann.token());
    ann.ask("GET", "saved");
    EXPECT_EQ(ann.status, 200) << "the older token stays valid";
    EXPECT_FALSE(ann.ask("DELETE", "saved/watchlist/show/1").contains("auth"))
        << "a failure contains no tokens";
    set(service, {{"rotation", "never"}});
    EXPECT_FALSE(ann.ask("GET", "saved").contains("auth"));
}

TEST(SampleTokens, AreRotatedAutomaticallyInTheSecondHalfOfTheirLifetime) {
    const SampleService service;
    EXPECT_EQ(service.control("GET", "/_control/tokens")["rotation"], "late");
    set(service, {{"seconds", 1000}});
    UserClient ann(service, "ann");
    set(service, {{"seconds", 1900}});
    EXPECT_FALSE(ann.ask("GET", "saved").contains("auth"));
    set(service, {{"seconds", 2100}});
    EXPECT_TRUE(ann.ask("GET", "saved").contains("auth"));
}

TEST(SampleTokens, InvalidSettingsAreRejectedAsAWhole) {
    const SampleService service;
    for (const char* body : {"", "[]", R"({"seconds":"long"})", R"({"rotation":"often"})",
                             R"({"refused":"ann"})", R"({"refused":[1]})", R"({"seconds":5,"other":1})"}) {
        EXPECT_TRUE(service.control("POST", "/_control/tokens", body).is_null()) << body;
    }
    EXPECT_EQ(service.control("GET", "/_control/tokens"),
              nlohmann::json::parse(R"({"seconds":3600.0,"rotation":"late","refused":[]})"));
}

TEST(SampleTokens, HaveTheLifetimeOfTheCommandLineByDefault) {
    EXPECT_EQ(runSampleService({"--token-seconds", "soon"}), 2);
    EXPECT_EQ(runSampleService({"--token-seconds", "inf"}), 2);
}

}  // namespace

}  // namespace VanticRestKit::test
