#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

class IPv6 : public testing::Test {
protected:
    void SetUp() override {
        if (!hasIPv6()) GTEST_SKIP() << "this machine has no IPv6 loopback";
    }

    const std::shared_ptr<URLSession> session_ = URLSession::make(URLSessionConfiguration::default_());
};

}  // namespace

TEST_F(IPv6, RequestsGoToAnAddressInBracketsOnOneConnection) {
    FaultServer server(always(answer(200, "ok")), nullptr, Loopback::v6);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(load(*session_, server.url()).body(), "ok");
    EXPECT_EQ(server.connectionCount(), 1U);
    const auto requests = server.requests();
    ASSERT_FALSE(requests.empty());
    EXPECT_EQ(requests[0].header("host"), "[::1]:" + std::to_string(server.port()));
}

TEST_F(IPv6, AResponseHasItsURLWithBracketsAndItsHostWithout) {
    FaultServer server(always(answer(200, "ok")), nullptr, Loopback::v6);
    const Loaded loaded = load(*session_, server.url("/a"));
    ASSERT_NE(loaded.response(), nullptr) << loaded.story();
    EXPECT_EQ(loaded.response()->url()->absoluteString(), server.url("/a"));
    EXPECT_EQ(loaded.response()->url()->host(), "::1");
}

TEST_F(IPv6, ARedirectCanContainAnIPv6Address) {
    FaultServer target(always(answer(200, "there")), nullptr, Loopback::v6);
    FaultServer server(always(answer(302, "", "Location: " + target.url("/x") + "\r\n")), nullptr,
                       Loopback::v6);
    EXPECT_EQ(load(*session_, server.url()).body(), "there");
}

TEST_F(IPv6, SlowHeadersArriveOnAReusedConnection) {
    FaultServer server(
        [](FaultConnection& connection) {
            if (!connection.readRequest()) return;
            connection.send(answer(200, "first"));
            if (!connection.readRequest()) return;
            connection.trickle("HTTP/1.1 200 OK\r\nX: y\r\nContent-Length: 2\r\n\r\n",
                               std::chrono::milliseconds(50));
            connection.send("ok");
        },
        nullptr, Loopback::v6);
    EXPECT_EQ(load(*session_, server.url()).body(), "first");
    URLRequest request = requestOf(server.url());
    request.setTimeoutInterval(std::chrono::duration<double>(0.5));
    const Loaded loaded = load(*session_, request);
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST_F(IPv6, ACertificateIsCheckedAgainstTheAddress) {
    const CertificateAuthority root;
    const TemporaryFile roots(root.pem());
    URLSessionConfiguration configuration;
    configuration.caBundlePath = roots.path();
    const auto session = URLSession::make(configuration);
    const Identity right = root.issue({.subject = "IP:::1"});
    FaultServer server(always(answer(200, "ok")), &right, Loopback::v6);
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
    const Identity wrong = root.issue();
    FaultServer other(always(answer(200, "ok")), &wrong, Loopback::v6);
    EXPECT_EQ(load(*session, other.url()).code(), URLErrorCode::serverCertificateUntrusted);
}
