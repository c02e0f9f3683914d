#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/http/URLSession.h>

namespace VanticRestKit {
namespace {

TEST(NetworkURLSession, ThereIsOneSharedInstance) {
    EXPECT_EQ(&NetworkURLSession::sharedInstance(), &NetworkURLSession::sharedInstance());
    EXPECT_NE(NetworkURLSession::sharedInstance().urlSesion, nullptr);
}

TEST(NetworkURLSession, TheSharedSessionUsesTheProtocolsCachePolicyAnd30Seconds) {
    const NetworkURLSession& shared = NetworkURLSession::sharedInstance();
    EXPECT_EQ(static_cast<int>(shared.sessionURLConfig.requestCachePolicy), 0);
    EXPECT_EQ(shared.sessionURLConfig.timeoutIntervalForRequest.count(), 30.0);
    EXPECT_EQ(shared.urlSesion->configuration().timeoutIntervalForRequest.count(), 30.0);
}

void expectEqual(const URLSessionConfiguration& a, const URLSessionConfiguration& b) {
    EXPECT_EQ(a.requestCachePolicy, b.requestCachePolicy);
    EXPECT_EQ(a.timeoutIntervalForRequest, b.timeoutIntervalForRequest);
    EXPECT_EQ(a.caBundlePath, b.caBundlePath);
    EXPECT_EQ(a.httpMaximumConnectionsPerHost, b.httpMaximumConnectionsPerHost);
}

TEST(NetworkURLSession, TheSharedSessionHasTheCompleteConfiguration) {
    const NetworkURLSession& shared = NetworkURLSession::sharedInstance();
    expectEqual(shared.urlSesion->configuration(), shared.sessionURLConfig);
    URLSessionConfiguration expected = URLSessionConfiguration::default_();
    expected.timeoutIntervalForRequest = URLRequest::Seconds(30.0);
    expectEqual(shared.sessionURLConfig, expected);
}

TEST(URLSession, KeepsEverySettingItIsCreatedWith) {
    const URLSessionConfiguration configuration{
        .requestCachePolicy = URLRequestCachePolicy::reloadIgnoringLocalCacheData,
        .timeoutIntervalForRequest = URLRequest::Seconds(7.5),
        .caBundlePath = "/nowhere/roots.pem",
        .httpMaximumConnectionsPerHost = 2};
    expectEqual(URLSession::make(configuration)->configuration(), configuration);
}

TEST(NetworkURLSession, TheQueueHasANameAndTheDefaultAttributes) {
    OperationQueue expected;
    expected.name = "dev.vantic.NetworkSesionQueue";
    EXPECT_EQ(NetworkURLSession::sharedInstance().sessionQueue, expected);
}

}  // namespace
}  // namespace VanticRestKit
