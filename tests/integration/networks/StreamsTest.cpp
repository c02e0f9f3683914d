// HTTP/2 loads from a server and through a link that interrupt streams and connections.

#include "Network.h"

#include <gtest/gtest.h>
#include <support/FaultRelay.h>
#include <support/Http2Origin.h>
#include <support/Reactor.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

constexpr std::size_t size = 3000;

/// An HTTP/2 server behind a relay.
class Streams : public testing::Test {
protected:
    void serve(const Http2Conduct& conduct, const LinkConditions& conditions = {}) {
        origin_ = std::make_unique<Http2Origin>(reactor_, conduct, identity_, nullptr, 21);
        relay_ = std::make_unique<FaultRelay>(reactor_, origin_->port(), conditions, 22);
        thread_.start();
        URLSessionConfiguration configuration;
        configuration.caBundlePath = bundle_.path();
        session_ = URLSession::make(configuration);
    }

    URLRequest request(std::uint64_t id, std::chrono::duration<double> interval = 30s) const {
        return requestFor("https://127.0.0.1", relay_->port(), id, interval, size);
    }

    std::vector<Loaded> startMany(std::uint64_t count, std::chrono::duration<double> interval = 30s) const {
        std::vector<Loaded> loads;
        for (std::uint64_t i = 0; i < count; ++i) loads.push_back(startLoad(*session_, request(i, interval)));
        return loads;
    }

    /// The number of successful loads, each with its own response. Expects that the others failed with one of
    /// `categories`.
    static std::size_t successes(const std::vector<Loaded>& loads,
                                 const std::vector<std::string>& categories) {
        std::size_t succeeded = 0;
        for (std::uint64_t i = 0; i < loads.size(); ++i) {
            if (loads[i].succeeded()) {
                ++succeeded;
                EXPECT_TRUE(isAnswered(loads[i], i, size));
            } else {
                EXPECT_TRUE(std::count(categories.begin(), categories.end(), outcomeOf(loads[i])) > 0)
                    << outcomeOf(loads[i]) << ": " << loads[i].story();
            }
            EXPECT_EQ(loads[i].calls(), 1);
        }
        return succeeded;
    }

    CertificateAuthority root_;
    TemporaryFile bundle_{root_.pem()};
    Identity identity_ = root_.issue();
    Reactor reactor_;
    std::unique_ptr<Http2Origin> origin_;
    std::unique_ptr<FaultRelay> relay_;
    ReactorThread thread_{reactor_};
    std::shared_ptr<URLSession> session_;
};

}  // namespace

TEST_F(Streams, ReorderedResponsesReachTheirOwnLoads) {
    serve({.longestWait = 60ms});
    ASSERT_TRUE(isAnswered(load(*session_, request(0)), 0, size));
    std::mutex mutex;
    std::vector<std::uint64_t> order;
    std::vector<Loaded> loads(60);
    for (std::uint64_t i = 0; i < loads.size(); ++i) {
        session_
            ->dataTask(request(i),
                       [&mutex, &order, i, pass = loads[i].completion()](auto data, auto response,
                                                                         auto error) mutable {
                           {
                               const std::lock_guard lock(mutex);
                               order.push_back(i);
                           }
                           pass(std::move(data), std::move(response), std::move(error));
                       })
            ->resume();
    }
    EXPECT_EQ(successes(loads, {}), loads.size());
    EXPECT_FALSE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(Streams, AfterAGoAwayAcceptedRequestsAreAnsweredAndTheOthersUseANewConnection) {
    serve({.longestWait = 20ms, .goAways = 0.05});
    const std::size_t succeeded = successes(startMany(200), {"offline"});
    EXPECT_GT(succeeded, 100U);
    EXPECT_GT(origin_->faultCount(), 0U);
    // At the end there is a working connection.
    EXPECT_GT(relay_->connectionCount(), 1U);
}

TEST_F(Streams, AGetLeftUnprocessedByAGoAwayIsSentAgain) {
    serve({.goAwaysWithoutLast = 0.3});
    for (std::uint64_t i = 0; i < 40; ++i) EXPECT_TRUE(isAnswered(load(*session_, request(i)), i, size));
    EXPECT_GT(origin_->faultCount(), 0U);
}

TEST_F(Streams, ARequestOtherThanGetLeftUnprocessedIsNotSentAgain) {
    serve({.goAwaysWithoutLast = 1});
    URLRequest post = request(1);
    post.setHTTPMethod("POST");
    post.setHTTPBody(Data("once"));
    const Loaded loaded = load(*session_, post);
    EXPECT_EQ(outcomeOf(loaded), "offline") << loaded.story();
    EXPECT_EQ(origin_->faultCount(), 1U);
}

TEST_F(Streams, AGetLeftUnprocessedOnEveryConnectionFails) {
    serve({.goAwaysWithoutLast = 1});
    const Loaded loaded = load(*session_, request(1));
    EXPECT_EQ(outcomeOf(loaded), "badAnswer") << loaded.story();
    EXPECT_GT(origin_->faultCount(), 1U);
    EXPECT_LT(origin_->faultCount(), 50U);
}

TEST_F(Streams, AResetStreamFailsAloneAndTheConnectionIsKept) {
    serve({.longestWait = 20ms, .resets = 0.2});
    const std::size_t succeeded = successes(startMany(200), {"offline"});
    EXPECT_EQ(succeeded, 200 - origin_->faultCount());
    EXPECT_GT(origin_->faultCount(), 0U);
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(Streams, ARefusedStreamIsSentAgain) {
    serve({.refusals = 0.2});
    for (std::uint64_t i = 0; i < 40; ++i) EXPECT_TRUE(isAnswered(load(*session_, request(i)), i, size));
    EXPECT_GT(origin_->faultCount(), 0U);
}

TEST_F(Streams, LoadsOverAStalledLinkTimeOutAndLaterOnesArrive) {
    serve({}, {.fault = LinkFault::stall, .share = 0.5, .lastByte = 20 * size});
    std::size_t succeeded = 0;
    for (int round = 0; round < 8; ++round) {
        succeeded += successes(startMany(20, 400ms), {"timedOut", "offline"});
    }
    EXPECT_GT(succeeded, 0U);
}

TEST_F(Streams, LoadsOverAResetLinkAreALostConnectionAndLaterOnesArrive) {
    serve({}, {.fault = LinkFault::reset, .share = 0.7, .lastByte = 20 * size});
    std::size_t succeeded = 0;
    for (int round = 0; round < 8; ++round) succeeded += successes(startMany(20), {"offline"});
    EXPECT_GT(succeeded, 0U);
    EXPECT_GT(relay_->faultCount(), 0U);
}

TEST_F(Streams, AnInterruptedHandshakeIsALostConnection) {
    for (const LinkFault fault : {LinkFault::truncate, LinkFault::reset, LinkFault::refuse}) {
        Reactor reactor;
        Http2Origin origin(reactor, {}, identity_, nullptr, 1);
        // Inside the server's first handshake message.
        FaultRelay relay(reactor, origin.port(), {.fault = fault, .share = 1, .lastByte = 30}, 2);
        ReactorThread thread(reactor);
        thread.start();
        const auto session = URLSession::make(URLSessionConfiguration::default_());
        const Loaded loaded = load(*session, requestFor("https://127.0.0.1", relay.port(), 1));
        EXPECT_EQ(outcomeOf(loaded), "offline") << loaded.story();
        EXPECT_TRUE(loaded.error() && adviceOn(*loaded.error()).mayTryAgain);
    }
}
