// Hosts with several addresses, some of them dead, in a private network.

#include "Network.h"

#include <gtest/gtest.h>
#include <support/NameServer.h>
#include <support/PlainOrigin.h>
#include <support/PrivateNetwork.h>
#include <support/Reactor.h>

#include <chrono>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// A private network in which nothing answers at 10.9.0.99 and fd09::99.
class Addresses : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = PrivateNetwork::enter(); !reason.empty()) GTEST_SKIP() << reason;
        ASSERT_TRUE(PrivateNetwork::connectFarNetwork());
        for (const char* const dead : {"10.9.0.99", "fd09::99"}) {
            // A static neighbour entry for an absent machine, so that packets are sent and lost.
            ASSERT_TRUE(PrivateNetwork::ip("neigh replace " + std::string(dead) +
                                           " lladdr 02:00:00:00:00:99 dev near nud permanent"));
        }
        names_ = std::make_unique<NameServer>(reactor_);
        ASSERT_TRUE(names_->isRunning());
        PrivateNetwork::inFarNetwork(
            [this] { origin_ = std::make_unique<PlainOrigin>(reactor_, 0, 41, Loopback::everyAddress); });
        thread_.start();
    }

    void expectThatAllArrive(const std::vector<std::string>& addresses) {
        names_->set("several.test", addresses);
        const auto start = std::chrono::steady_clock::now();
        for (std::uint64_t i = 0; i < 10; ++i) {
            const Loaded loaded = load(*session_, requestFor("http://several.test", origin_->port(), i));
            EXPECT_TRUE(isAnswered(loaded, i));
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(25))
            << "a dead address must cost only a part of the time of a request, and only once";
    }

    Reactor reactor_;
    std::unique_ptr<NameServer> names_;
    std::unique_ptr<PlainOrigin> origin_;
    ReactorThread thread_{reactor_};
    std::shared_ptr<URLSession> session_ = URLSession::make(URLSessionConfiguration::default_());
};

}  // namespace

TEST_F(Addresses, ADeadIPv6AddressFallsBackToIPv4) { expectThatAllArrive({"fd09::99", "10.9.0.2"}); }

TEST_F(Addresses, ADeadIPv4AddressFallsBackToIPv6) { expectThatAllArrive({"10.9.0.99", "fd09::2"}); }

TEST_F(Addresses, ADeadAddressFallsBackToAnotherOfTheSameKind) {
    expectThatAllArrive({"10.9.0.99", "10.9.0.2"});
    expectThatAllArrive({"fd09::99", "fd09::2"});
}

TEST_F(Addresses, AnUnreachableAddressCostsNoTime) {
    // There is no route to the first address.
    expectThatAllArrive({"192.0.2.1", "10.9.0.2"});
    expectThatAllArrive({"2001:db8::1", "10.9.0.2"});
}

TEST_F(Addresses, AHostWithOnlyDeadAddressesTimesOutWithinTheTimeOfTheRequest) {
    names_->set("several.test", {"10.9.0.99", "fd09::99"});
    const Loaded loaded = load(
        *session_, requestFor("http://several.test", origin_->port(), 1, std::chrono::milliseconds(1500)));
    EXPECT_EQ(outcomeOf(loaded), "timedOut") << loaded.story();
}
