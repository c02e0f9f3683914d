// A server whose certificate changes between connections.

#include "Network.h"

#include <gtest/gtest.h>
#include <support/Http2Origin.h>
#include <support/Reactor.h>

#include <chrono>
#include <memory>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

class Certificates : public testing::Test {
protected:
    void serve(const Identity& first, const Identity& other) {
        origin_ = std::make_unique<Http2Origin>(reactor_, Http2Conduct{}, first, &other, 31);
        thread_.start();
        URLSessionConfiguration configuration;
        configuration.caBundlePath = bundle_.path();
        session_ = URLSession::make(configuration);
    }

    Loaded loadOnNewConnection(std::uint64_t id) {
        session_->closeIdleConnections();
        return load(*session_, requestFor("https://127.0.0.1", origin_->port(), id));
    }

    CertificateAuthority root_;
    TemporaryFile bundle_{root_.pem()};
    Reactor reactor_;
    std::unique_ptr<Http2Origin> origin_;
    ReactorThread thread_{reactor_};
    std::shared_ptr<URLSession> session_;
};

}  // namespace

TEST_F(Certificates, ARenewedCertificateIsAcceptedOnTheNextConnection) {
    const Identity first = root_.issue();
    const Identity renewed = root_.issue();
    serve(first, renewed);
    EXPECT_TRUE(isAnswered(loadOnNewConnection(1), 1));
    origin_->presentOther(true);
    EXPECT_TRUE(isAnswered(loadOnNewConnection(2), 2));
    EXPECT_EQ(origin_->connectionCount(), 2U);
}

TEST_F(Certificates, AnUntrustedCertificateIsRejectedUntilATrustedOneIsBack) {
    const Identity good = root_.issue();
    const Identity expired = root_.issue({.from = std::chrono::hours(-48), .until = std::chrono::hours(-24)});
    serve(good, expired);
    EXPECT_TRUE(isAnswered(loadOnNewConnection(1), 1));
    origin_->presentOther(true);
    for (std::uint64_t i = 2; i < 5; ++i) EXPECT_EQ(outcomeOf(loadOnNewConnection(i)), "insecure");
    origin_->presentOther(false);
    EXPECT_TRUE(isAnswered(loadOnNewConnection(5), 5));
}

TEST_F(Certificates, AnOpenConnectionIsUsedEvenIfANewOneWouldBeRejected) {
    const Identity good = root_.issue();
    const Identity unknown = selfSigned();
    serve(good, unknown);
    EXPECT_TRUE(isAnswered(loadOnNewConnection(1), 1));
    origin_->presentOther(true);
    EXPECT_TRUE(isAnswered(load(*session_, requestFor("https://127.0.0.1", origin_->port(), 2)), 2));
    EXPECT_EQ(origin_->connectionCount(), 1U);
}
