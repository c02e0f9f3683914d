#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <limits>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

namespace {

std::shared_ptr<URLSession> sessionWithin(double seconds, URLSessionLimits limits = {}) {
    URLSessionConfiguration configuration;
    configuration.timeoutIntervalForResource = Seconds(seconds);
    configuration.limits = limits;
    return URLSession::make(configuration);
}

/// Answers with a body of one byte per `pause` while the client is connected.
FaultServer::Script dripping(milliseconds pause) {
    return [pause](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        while (connection.send("x")) connection.pace(pause);
    };
}

std::string reasonOf(const Loaded& loaded) {
    if (!loaded.error()) return loaded.story();
    const auto info = loaded.error()->userInfo();
    const auto found = info.find("NSDebugDescription");
    return found == info.end() ? loaded.story() : *found->second.text();
}

}  // namespace

TEST(ResourceTimeOuts, ASlowResponseEndsAtItsDeadline) {
    FaultServer server(dripping(milliseconds(50)));
    const auto before = Clock::now();
    const Loaded loaded = load(*sessionWithin(0.5), server.url());
    const Seconds taken = Clock::now() - before;
    EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << loaded.story();
    EXPECT_EQ(reasonOf(loaded), "The load took longer than 0.5 seconds (timeoutIntervalForResource).");
    EXPECT_EQ(loaded.status(), 200) << "the response is passed together with the error";
    EXPECT_GE(taken.count(), 0.49);
    EXPECT_LT(taken.count(), 15);
    EXPECT_TRUE(server.waitForEnded(1)) << "the connection is still open";
}

TEST(ResourceTimeOuts, SixSlowResponsesDoNotBlockAnOrigin) {
    // More loads than connections: queued loads have no more time than the others.
    FaultServer server(dripping(milliseconds(300)));
    const auto session = sessionWithin(1);
    const auto before = Clock::now();
    std::vector<Loaded> loads;
    for (int i = 0; i < 16; ++i) loads.push_back(startLoad(*session, requestOf(server.url())));
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << loaded.story();
    EXPECT_LT(Seconds(Clock::now() - before).count(), 10);
}

TEST(ResourceTimeOuts, RedirectsDoNotRestartTheTimeout) {
    FaultServer server([](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.pace(milliseconds(100));
            if (!connection.send(answer(302, "", "Location: /on\r\n"))) return;
        }
    });
    const Loaded loaded = load(*sessionWithin(0.5), server.url());
    EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << loaded.story();
}

TEST(ResourceTimeOuts, ALoadIsNotAffectedByTheDeadlineOfThePreviousOne) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = sessionWithin(2);
    const auto before = Clock::now();
    while (Clock::now() - before < milliseconds(2200)) {
        const Loaded loaded = load(*session, server.url());
        ASSERT_EQ(loaded.body(), "ok") << loaded.story();
    }
}

TEST(ResourceTimeOuts, AnInvalidIntervalIsTheDefault) {
    EXPECT_EQ(URLSessionConfiguration::default_().timeoutIntervalForResource, std::chrono::hours(7 * 24));
    FaultServer server(always(answer(200, "ok")));
    for (const double seconds : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 1e300}) {
        EXPECT_EQ(load(*sessionWithin(seconds), server.url()).body(), "ok") << seconds;
    }
}

TEST(MinimumSpeed, ATooSlowBodyFails) {
    FaultServer server(dripping(milliseconds(50)));
    const auto session = sessionWithin(0, {.minBodyBytesPerSecond = 1000, .bodySpeedInterval = Seconds(0.4)});
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << loaded.story();
    EXPECT_EQ(reasonOf(loaded),
              "For 0.4 seconds the body came at less than 1000 bytes per second (minBodyBytesPerSecond).");
    EXPECT_TRUE(server.waitForEnded(1));
}

TEST(MinimumSpeed, AFastBodyAfterASlowHeadSucceeds) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.trickle("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n", milliseconds(50));
        for (int i = 0; i < 10; ++i) {
            connection.send(std::string(100, 'x'));
            connection.pace(milliseconds(250));
        }
    });
    const auto session = sessionWithin(0, {.minBodyBytesPerSecond = 50, .bodySpeedInterval = Seconds(1.5)});
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.body().size(), 1000U) << loaded.story();
}
