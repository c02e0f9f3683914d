// HTTP/1.1 loads through a relay with one kind of fault.

#include "Network.h"

#include <gtest/gtest.h>
#include <support/FaultRelay.h>
#include <support/PlainOrigin.h>
#include <support/Reactor.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

constexpr std::size_t size = 4000;
constexpr std::uint64_t count = 60;

/// A server behind a relay.
class Links : public testing::Test {
protected:
    void serve(const LinkConditions& conditions) {
        relay_ = std::make_unique<FaultRelay>(reactor_, origin_.port(), conditions, 7);
        thread_.start();
    }

    URLRequest request(std::uint64_t id, std::chrono::duration<double> interval = 30s) const {
        return requestFor("http://127.0.0.1", relay_->port(), id, interval, size);
    }

    /// Starts many loads at once and returns how many succeed. Expects that each ends exactly once, and that the others
    /// fail with `category`.
    std::uint64_t expectOtherwise(const std::string& category, std::chrono::duration<double> interval = 30s) {
        std::vector<Loaded> loads;
        for (std::uint64_t i = 0; i < count; ++i) loads.push_back(startLoad(*session_, request(i, interval)));
        std::uint64_t succeeded = 0;
        for (std::uint64_t i = 0; i < count; ++i) {
            const Loaded& loaded = loads[i];
            if (loaded.succeeded()) {
                ++succeeded;
                EXPECT_TRUE(isAnswered(loaded, i, size));
            } else {
                EXPECT_EQ(outcomeOf(loaded), category) << loaded.story();
            }
            EXPECT_EQ(loaded.calls(), 1);
        }
        EXPECT_GT(relay_->faultCount(), 0U);
        return succeeded;
    }

    Reactor reactor_;
    PlainOrigin origin_{reactor_, 10, 11};
    std::unique_ptr<FaultRelay> relay_;
    ReactorThread thread_{reactor_};
    std::shared_ptr<URLSession> session_ = URLSession::make(URLSessionConfiguration::default_());
};

}  // namespace

TEST_F(Links, LoadsOverALinkWithHighLatencyAllArrive) {
    serve({.minLatency = 5ms, .maxLatency = 40ms});
    std::vector<Loaded> loads;
    for (std::uint64_t i = 0; i < count; ++i) loads.push_back(startLoad(*session_, request(i)));
    for (std::uint64_t i = 0; i < count; ++i) EXPECT_TRUE(isAnswered(loads[i], i, size));
}

TEST_F(Links, ResponsesWithLostAndResentPacketsAllArrive) {
    serve({.fault = LinkFault::pause, .share = 1, .longestPause = 200ms});
    EXPECT_EQ(expectOtherwise("none"), count);
}

TEST_F(Links, StalledResponsesTimeOutAndTheOthersArrive) {
    serve({.fault = LinkFault::stall, .share = 0.5});
    EXPECT_LT(expectOtherwise("timedOut", 400ms), count);
}

TEST_F(Links, TruncatedResponsesAreALostConnection) {
    serve({.fault = LinkFault::truncate, .share = 1, .lastByte = 3 * size});
    const auto succeeded = expectOtherwise("offline");
    EXPECT_GT(succeeded, 0U);
    EXPECT_LT(succeeded, count);
}

TEST_F(Links, ResponsesThatEndWithAResetAreALostConnection) {
    serve({.fault = LinkFault::reset, .share = 1, .lastByte = 3 * size});
    EXPECT_LT(expectOtherwise("offline"), count);
}

TEST_F(Links, AConnectionHalfClosedByTheServerIsALostConnection) {
    serve({.fault = LinkFault::halfCloseAnswer, .share = 1, .lastByte = 3 * size});
    EXPECT_LT(expectOtherwise("offline"), count);
}

TEST_F(Links, AResponseOnAConnectionHalfClosedByTheClientArrives) {
    serve({.fault = LinkFault::halfCloseRequest, .share = 1});
    EXPECT_EQ(expectOtherwise("none"), count);
}

TEST_F(Links, ConnectionsResetAtOnceCannotBeUsed) {
    serve({.fault = LinkFault::refuse, .share = 0.5});
    EXPECT_LT(expectOtherwise("offline"), count);
}

TEST_F(Links, LaterLoadsSucceedAfterAStall) {
    serve({.fault = LinkFault::stall, .share = 0.3, .lastByte = size});
    std::uint64_t failed = 0;
    for (std::uint64_t i = 0; i < 30; ++i) {
        // A new connection may stall too, but loads must not keep failing.
        if (!load(*session_, request(i, 300ms)).succeeded()) ++failed;
    }
    EXPECT_EQ(failed, relay_->faultCount());
}
