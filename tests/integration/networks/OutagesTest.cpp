// A network that disappears and comes back, inside a private network.

#include "Network.h"

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/Http2Origin.h>
#include <support/NameServer.h>
#include <support/PlainOrigin.h>
#include <support/PrivateNetwork.h>
#include <support/Reactor.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

/// A far network with an HTTP/1.1 server and an HTTP/2 server.
class Outages : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = PrivateNetwork::enter(); !reason.empty()) GTEST_SKIP() << reason;
        ASSERT_TRUE(PrivateNetwork::connectFarNetwork());
        comeBackAs("10.9.0.1");
        PrivateNetwork::inFarNetwork([this] {
            plain_ = std::make_unique<PlainOrigin>(reactor_, 0, 61, Loopback::everyAddress);
            secure_ = std::make_unique<Http2Origin>(reactor_, Http2Conduct{}, identity_, nullptr, 62,
                                                    Loopback::everyAddress);
        });
        names_ = std::make_unique<NameServer>(reactor_);
        names_->set("far.test", {"10.9.0.2"});
        thread_.start();
        URLSessionConfiguration configuration;
        configuration.caBundlePath = bundle_.path();
        session_ = URLSession::make(configuration);
    }
    void TearDown() override {
        if (PrivateNetwork::enter().empty()) comeBackAs("10.9.0.1");
    }

    static void disappear() {
        ASSERT_TRUE(PrivateNetwork::ip("link set near down"));
        ASSERT_TRUE(PrivateNetwork::ip("addr flush dev near"));
    }
    static void comeBackAs(const std::string& address) {
        ASSERT_TRUE(PrivateNetwork::ip("addr flush dev near"));
        ASSERT_TRUE(PrivateNetwork::ip("addr add " + address + "/24 dev near"));
        ASSERT_TRUE(PrivateNetwork::ip("addr add fd09::1/64 dev near nodad"));
        ASSERT_TRUE(PrivateNetwork::ip("link set near up"));
    }

    URLRequest plain(std::uint64_t id, std::chrono::duration<double> interval = 20s) const {
        return requestFor("http://10.9.0.2", plain_->port(), id, interval);
    }
    URLRequest secure(std::uint64_t id, std::chrono::duration<double> interval = 20s) const {
        return requestFor("https://10.9.0.2", secure_->port(), id, interval);
    }

    CertificateAuthority root_;
    TemporaryFile bundle_{root_.pem()};
    Identity identity_ = root_.issue({.subject = "IP:10.9.0.2"});
    Reactor reactor_;
    std::unique_ptr<PlainOrigin> plain_;
    std::unique_ptr<Http2Origin> secure_;
    std::unique_ptr<NameServer> names_;
    ReactorThread thread_{reactor_};
    std::shared_ptr<URLSession> session_;
};

}  // namespace

TEST_F(Outages, LoadsWithoutANetworkFailAsOfflineAtOnce) {
    disappear();
    EXPECT_EQ(outcomeOf(load(*session_, plain(1))), "offline");
    EXPECT_EQ(outcomeOf(load(*session_, secure(2))), "offline");
}

TEST_F(Outages, TheFirstLoadAfterAnOutageWithoutLoadsSucceedsFromAnotherAddress) {
    // Six HTTP/1.1 connections and one HTTP/2 connection are idle when the outage begins.
    std::vector<Loaded> loads;
    for (std::uint64_t i = 0; i < 12; ++i) loads.push_back(startLoad(*session_, plain(i)));
    for (std::uint64_t i = 0; i < 12; ++i) ASSERT_TRUE(isAnswered(loads[i], i));
    ASSERT_TRUE(isAnswered(load(*session_, secure(20)), 20));
    disappear();
    comeBackAs("10.9.0.3");
    EXPECT_TRUE(isAnswered(load(*session_, plain(21)), 21));
    EXPECT_TRUE(isAnswered(load(*session_, secure(22)), 22));
}

TEST_F(Outages, TheFirstLoadAfterAnOutageWithFailedLoadsSucceedsFromAnotherAddress) {
    ASSERT_TRUE(isAnswered(load(*session_, plain(1)), 1));
    ASSERT_TRUE(isAnswered(load(*session_, secure(2)), 2));
    disappear();
    for (const auto& request : {plain(3, 500ms), secure(4, 500ms), plain(5, 500ms), secure(6, 500ms)}) {
        const std::string outcome = outcomeOf(load(*session_, request));
        EXPECT_TRUE(outcome == "offline" || outcome == "timedOut") << outcome;
    }
    comeBackAs("10.9.0.4");
    EXPECT_TRUE(isAnswered(load(*session_, plain(7)), 7));
    EXPECT_TRUE(isAnswered(load(*session_, secure(8)), 8));
}

TEST_F(Outages, ALoadSucceedsFromAnotherAddressWhileAnEarlierOneStillWaits) {
    for (const char* const method : {"GET", "POST"}) {
        ASSERT_TRUE(isAnswered(load(*session_, secure(1)), 1));
        disappear();
        const Loaded waiting = startLoad(*session_, secure(2));
        comeBackAs(*method == 'G' ? "10.9.0.5" : "10.9.0.6");
        URLRequest next = secure(3);
        next.setHTTPMethod(method);
        EXPECT_TRUE(isAnswered(load(*session_, next), 3)) << method;
        // Its connection is dead, and it may have been moved to another one. The test does not wait for its timeout.
        const std::string outcome = outcomeOf(waiting);
        EXPECT_TRUE(outcome == "success" || outcome == "offline") << outcome;
    }
}

TEST_F(Outages, ConnectionsSurviveIfTheNetworkComesBackUnchanged) {
    ASSERT_TRUE(isAnswered(load(*session_, secure(1)), 1));
    ASSERT_TRUE(PrivateNetwork::ip("link set near down"));
    const Loaded waiting = startLoad(*session_, secure(2));
    ASSERT_TRUE(PrivateNetwork::ip("link set near up"));
    EXPECT_TRUE(isAnswered(waiting, 2));
    EXPECT_TRUE(isAnswered(load(*session_, secure(3)), 3));
    EXPECT_EQ(secure_->connectionCount(), 1U);
}

TEST_F(Outages, ALoadWaitingForConnectivityArrivesWhenTheNetworkIsBack) {
    disappear();
    URLSessionConfiguration configuration;
    configuration.waitsForConnectivity = true;
    const auto session = URLSession::make(configuration);
    const Loaded waiting = startLoad(*session, plain(1));
    comeBackAs("10.9.0.8");
    EXPECT_TRUE(isAnswered(waiting, 1));
}

TEST_F(Outages, AHostWithAnotherAddressInTheNewNetworkIsFoundThere) {
    const auto byName = [this](std::uint64_t id) {
        return load(*session_, requestFor("http://far.test", plain_->port(), id));
    };
    ASSERT_TRUE(isAnswered(byName(1), 1));
    disappear();
    ASSERT_TRUE(PrivateNetwork::ip("-n far addr del 10.9.0.2/24 dev far"));
    ASSERT_TRUE(PrivateNetwork::ip("-n far addr add 10.9.0.12/24 dev far"));
    names_->set("far.test", {"10.9.0.12"});
    comeBackAs("10.9.0.7");
    EXPECT_TRUE(isAnswered(byName(2), 2));
    ASSERT_TRUE(PrivateNetwork::ip("-n far addr del 10.9.0.12/24 dev far"));
    ASSERT_TRUE(PrivateNetwork::ip("-n far addr add 10.9.0.2/24 dev far"));
}
