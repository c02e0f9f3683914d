// Names that temporarily cannot be looked up, in a private network.

#include "Network.h"

#include <gtest/gtest.h>
#include <support/NameServer.h>
#include <support/PlainOrigin.h>
#include <support/PrivateNetwork.h>
#include <support/Reactor.h>

#include <chrono>
#include <memory>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

class Names : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = PrivateNetwork::enter(); !reason.empty()) GTEST_SKIP() << reason;
        names_ = std::make_unique<NameServer>(reactor_);
        ASSERT_TRUE(names_->isRunning());
        names_->set("host.test", {"127.0.0.1"});
        origin_ = std::make_unique<PlainOrigin>(reactor_, 0, 51);
        thread_.start();
    }

    Loaded loadByName(std::uint64_t id, std::chrono::duration<double> interval = 30s) {
        return load(*session_, requestFor("http://host.test", origin_->port(), id, interval));
    }

    Reactor reactor_;
    std::unique_ptr<NameServer> names_;
    std::unique_ptr<PlainOrigin> origin_;
    ReactorThread thread_{reactor_};
    std::shared_ptr<URLSession> session_ = URLSession::make(URLSessionConfiguration::default_());
};

}  // namespace

TEST_F(Names, AreLookedUpAgainByTheNextLoadAfterAServerFailure) {
    for (const NameFault fault : {NameFault::fails, NameFault::denies, NameFault::silent}) {
        names_->setFault(fault);
        EXPECT_EQ(outcomeOf(loadByName(1)), "offline");
        names_->setFault(NameFault::none);
        EXPECT_TRUE(isAnswered(loadByName(2), 2));
        session_ = URLSession::make(URLSessionConfiguration::default_());
    }
}

TEST_F(Names, UnansweredLookupsTimeOutWithTheRequest) {
    names_->setFault(NameFault::silent);
    EXPECT_EQ(outcomeOf(loadByName(1, 300ms)), "timedOut");
    names_->setFault(NameFault::none);
    EXPECT_TRUE(isAnswered(loadByName(2), 2));
}

TEST_F(Names, KnownNamesAreNotLookedUpAgainWhileTheirServerFails) {
    EXPECT_TRUE(isAnswered(loadByName(1), 1));
    names_->setFault(NameFault::fails);
    session_->closeIdleConnections();
    EXPECT_TRUE(isAnswered(loadByName(2), 2));
}

TEST_F(Names, AChangedAddressIsUsedByTheLoadAfterAFailedOne) {
    EXPECT_TRUE(isAnswered(loadByName(1), 1));
    // The server is only at 127.0.0.1, but its name now temporarily has another address.
    names_->set("moved.test", {"127.0.0.77"});
    const auto loadMoved = [this](std::uint64_t id) {
        return load(*session_, requestFor("http://moved.test", origin_->port(), id));
    };
    EXPECT_EQ(outcomeOf(loadMoved(2)), "offline");
    names_->set("moved.test", {"127.0.0.1"});
    EXPECT_TRUE(isAnswered(loadMoved(3), 3)) << "an address that does not answer must not be kept";
}
