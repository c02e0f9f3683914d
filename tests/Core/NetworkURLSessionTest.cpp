#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/http/URLSession.h>

namespace VanticRestKit {
namespace {

TEST(NetworkURLSession, TheSharedInstanceIsOne) {
    EXPECT_EQ(&NetworkURLSession::sharedInstance(), &NetworkURLSession::sharedInstance());
    EXPECT_NE(NetworkURLSession::sharedInstance().urlSesion, nullptr);
}

TEST(NetworkURLSession, TheSharedSessionUsesTheProtocolsCachePolicyAnd30Seconds) {
    const NetworkURLSession& shared = NetworkURLSession::sharedInstance();
    EXPECT_EQ(static_cast<int>(shared.sessionURLConfig.requestCachePolicy), 0);
    EXPECT_EQ(shared.sessionURLConfig.timeoutIntervalForRequest.count(), 30.0);
    EXPECT_EQ(shared.urlSesion->configuration().timeoutIntervalForRequest.count(), 30.0);
}

TEST(NetworkURLSession, TheQueueIsNamedAndKeepsItsDefaults) {
    OperationQueue expected;
    expected.name = "dev.vantic.NetworkSesionQueue";
    EXPECT_EQ(NetworkURLSession::sharedInstance().sessionQueue, expected);
}

}  // namespace
}  // namespace VanticRestKit
