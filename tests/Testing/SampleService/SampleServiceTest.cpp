#include <gtest/gtest.h>
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/Testing/SampleService/SampleService.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/trelvo/UserClient.h>

namespace VanticRestKit::Testing {
namespace {

using namespace std::chrono_literals;

/// A host whose requests go over the network.
class NetworkContext : public TestContext {
public:
    explicit NetworkContext(const SampleService& service) { base = service.baseURL(); }
};

std::int64_t statusOf(const Result<double, LoaderError>& outcome) {
    if (outcome) return 200;
    const auto* error = outcome.error().underlyingError()->as<NetworkError>();
    return error != nullptr && error->response() ? error->response()->statusCode() : 0;
}

TEST(SampleServiceTest, AnswersOnAFreePort) {
    const SampleService service;
    ASSERT_TRUE(service.isRunning());
    EXPECT_NE(service.port(), 0);
    EXPECT_EQ(service.authority(), "");
    const NetworkContext context(service);
    const auto time = Endpoint::Time(context);
    EXPECT_TRUE(time->wait({.deadline = 30s}));
    EXPECT_EQ(service.log(), std::vector<std::string>{"GET /v2/time"});
    EXPECT_NE(service.logDocument().find("\"User-Agent\""), std::string::npos);
}

TEST(SampleServiceTest, FaultsCanBeScripted) {
    SampleService service;
    const NetworkContext context(service);
    EXPECT_TRUE(
        service.add({.kind = SampleFault::Kind::status, .path = "v2/time", .count = 2, .status = 503}));
    EXPECT_FALSE(service.add({.kind = SampleFault::Kind::null, .at = {"no pointer"}}));
    const auto time = Endpoint::Time(context);
    EXPECT_EQ(statusOf(time->wait({.deadline = 30s})), 503);
    service.clearFaults();
    EXPECT_EQ(statusOf(time->wait({.deadline = 30s})), 200);
    service.clearLog();
    EXPECT_TRUE(service.log().empty());
}

TEST(SampleServiceTest, TwoServicesAreIndependent) {
    SampleService one;
    SampleService other;
    EXPECT_NE(one.port(), other.port());
    const NetworkContext context(one);
    EXPECT_TRUE(one.add({.kind = SampleFault::Kind::status}));
    EXPECT_EQ(statusOf(Endpoint::Time(NetworkContext(other))->wait({.deadline = 30s})), 200);
    EXPECT_TRUE(one.log().empty());
    EXPECT_EQ(other.log().size(), 1U);
}

TEST(SampleServiceTest, StopsOnRequest) {
    SampleService service;
    const NetworkContext context(service);
    service.stop();
    EXPECT_FALSE(service.isRunning());
    EXPECT_EQ(statusOf(Endpoint::Time(context)->wait({.deadline = 30s})), 0);
}

TEST(SampleServiceTest, OverTLSItProvidesACertificateToTrust) {
    const SampleService service({.tls = true});
    ASSERT_TRUE(service.isRunning());
    EXPECT_TRUE(service.baseURL().absoluteString().starts_with("https://127.0.0.1:"));
    EXPECT_TRUE(service.authority().starts_with("-----BEGIN CERTIFICATE-----"));
}

TEST(SampleServiceTest, DoesNotRunIfItsPortIsTaken) {
    const SampleService first;
    const SampleService second({.port = first.port()});
    EXPECT_FALSE(second.isRunning());
    EXPECT_EQ(second.port(), 0);
    EXPECT_EQ(second.baseURL().absoluteString(), "http://127.0.0.1:1");
    EXPECT_TRUE(first.isRunning());
}

TEST(SampleServiceTest, FaultsChangeTheAnswersAsTheirKindSays) {
    SampleService service;
    const NetworkContext context(service);
    const auto time = Endpoint::Time(context);
    const auto codeAfter = [&](const SampleFault& fault) -> std::int64_t {
        EXPECT_TRUE(service.add(fault));
        const auto outcome = time->wait({.deadline = 30s});
        if (outcome) return 0;
        const auto* error = outcome.error().underlyingError()->as<NetworkError>();
        return error != nullptr && error->transportError() ? error->transportError()->code() : -1;
    };
    EXPECT_EQ(codeAfter({.kind = SampleFault::Kind::delay, .seconds = 1ms}), 0);
    // The transport sends a GET again on a new connection, so one reset is not enough.
    EXPECT_EQ(codeAfter({.kind = SampleFault::Kind::reset, .count = 100}),
              static_cast<std::int64_t>(URLErrorCode::networkConnectionLost));
    service.clearFaults();
    EXPECT_EQ(codeAfter({.kind = SampleFault::Kind::malformed}), -1);
    EXPECT_EQ(codeAfter({.kind = SampleFault::Kind::malformed, .text = "2.5"}), 0);
}

TEST(SampleServiceTest, FaultsOfTheContentChangeOneDocument) {
    SampleService service;
    const NetworkContext context(service);
    int requests = 0;
    const auto body = [&] {
        // Each request has another URL, so that none is answered from the cache.
        std::vector<URLQueryItem> items{{"request", std::to_string(++requests)}};
        const HrefURI route({.withHref = "v2/collection/1001", .andQueryItems = std::move(items)});
        return Resource<RawText>::make({.withHrefURI = route}, context)->wait({.deadline = 30s}).value().text;
    };
    const std::string plain = body();
    EXPECT_TRUE(body() == plain);
    EXPECT_TRUE(service.add({.kind = SampleFault::Kind::null}));
    EXPECT_EQ(body(), "null");
    for (const auto kind : {SampleFault::Kind::unknownEnum, SampleFault::Kind::oddities}) {
        EXPECT_TRUE(service.add({.kind = kind}));
        EXPECT_TRUE(body() != plain);
        EXPECT_TRUE(body() == plain);
    }
}

TEST(SampleServiceTest, ExpiredTokensAreRenewedByTheClient) {
    SampleService service;
    const auto client = UserClient::make(std::make_shared<NetworkContext>(service));
    ASSERT_TRUE(client->addWatchlistShow({.showId = 11}).wait({.deadline = 30s}));
    service.clearLog();
    ASSERT_TRUE(client->listWatchlistShowIds().wait({.deadline = 30s}));
    EXPECT_EQ(service.log().size(), 1U) << "the token is still valid";
    service.expireTokens();
    service.clearLog();
    const auto shows = client->listWatchlistShowIds().wait({.deadline = 30s});
    ASSERT_TRUE(shows);
    EXPECT_EQ(shows->size(), 1U) << "users keep their data";
    EXPECT_EQ(service.log().size(), 3U) << "a refused request, a new token and the repeated request";
}

TEST(SampleServiceTest, ClearedUsersLoseTheirData) {
    SampleService service;
    const auto context = std::make_shared<NetworkContext>(service);
    ASSERT_TRUE(UserClient::make(context)->addWatchlistShow({.showId = 11}).wait({.deadline = 30s}));
    service.clearUsers();
    const auto shows = UserClient::make(context)->listWatchlistShowIds().wait({.deadline = 30s});
    ASSERT_TRUE(shows);
    EXPECT_TRUE(shows->empty());
}

}  // namespace
}  // namespace VanticRestKit::Testing
