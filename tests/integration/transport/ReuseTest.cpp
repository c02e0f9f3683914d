#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

/// Serves one request on its first connection, reads the next one and closes or resets the connection without a
/// response, so that the client notices only then. Serves everything on later connections.
FaultServer::Script dyingOnReuse(bool reset) {
    return [reset](FaultConnection& connection) {
        for (int served = 0; connection.readRequest(); ++served) {
            if (connection.index() == 0 && served == 1) {
                if (reset) connection.reset();
                return;
            }
            connection.send(answer(200, "served"));
        }
    };
}

}  // namespace

TEST(Reuse, SequentialRequestsShareOneConnection) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    for (int i = 0; i < 10; ++i) EXPECT_EQ(load(*session, server.url()).body(), "ok");
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(Reuse, SixIdleConnectionsAreKept) {
    FaultServer* reached = nullptr;
    FaultServer server([&reached](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/hold" && !reached->hold()) return;
            connection.send(answer(200, "ok"));
        }
    });
    reached = &server;
    const auto session = makeSession();
    std::vector<Loaded> loads;
    for (int i = 0; i < 6; ++i) loads.push_back(startLoad(*session, requestOf(server.url("/hold"))));
    ASSERT_TRUE(server.waitForRequests(6));
    server.releaseHeld();
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "ok");
    for (int i = 0; i < 10; ++i) load(*session, server.url("/one"));
    EXPECT_EQ(server.connectionCount(), 6U);
}

TEST(Reuse, AConnectionStaysOpenBetweenTwoLoads) {
    FaultServer server(always(answer(200, "ok")));
    FaultServer stalling([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    const auto session = makeSession();
    EXPECT_EQ(load(*session, server.url()).body(), "ok");
    // Longer than a connection left by a cancelled request is kept open.
    URLRequest between = requestOf(stalling.url());
    between.setTimeoutInterval(std::chrono::milliseconds(600));
    EXPECT_EQ(load(*session, between).code(), URLErrorCode::timedOut);
    EXPECT_EQ(load(*session, server.url()).body(), "ok");
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(Reuse, AGetOnADeadConnectionIsSentAgainOnAnother) {
    for (const bool reset : {false, true}) {
        FaultServer server(dyingOnReuse(reset));
        const auto session = makeSession();
        EXPECT_EQ(load(*session, server.url("/1")).body(), "served");
        const Loaded second = load(*session, server.url("/2"));
        EXPECT_EQ(second.body(), "served") << second.story();
        EXPECT_EQ(server.connectionCount(), 2U);
    }
}

TEST(Reuse, OtherMethodsAreSentOnlyOnce) {
    for (const bool reset : {false, true}) {
        for (const char* method : {"POST", "PUT", "PATCH", "DELETE", "HEAD", "OPTIONS"}) {
            for (const bool withBody : {false, true}) {
                FaultServer server(dyingOnReuse(reset));
                const auto session = makeSession();
                EXPECT_EQ(load(*session, server.url("/1")).body(), "served");
                URLRequest request = requestOf(server.url("/2"), method);
                if (withBody) request.setHTTPBody(Data("once"));
                const Loaded second = load(*session, request);
                EXPECT_EQ(second.code(), URLErrorCode::networkConnectionLost)
                    << method << ": " << second.story();
                // If it had been sent again, it would precede this one.
                EXPECT_EQ(load(*session, server.url("/3")).body(), "served");
                const auto requests = server.requests();
                ASSERT_EQ(requests.size(), 3U) << method;
                EXPECT_EQ(requests[1].target, "/2");
                EXPECT_EQ(requests[2].target, "/3");
            }
        }
    }
}

TEST(Reuse, AGetWithAPartialResponseIsNotSentAgain) {
    FaultServer server([](FaultConnection& connection) {
        for (int served = 0; connection.readRequest(); ++served) {
            if (connection.index() == 0 && served == 1) {
                connection.send("HTTP/1.1 200 OK\r\n");
                return;
            }
            connection.send(answer(200, "served"));
        }
    });
    const auto session = makeSession();
    load(*session, server.url("/1"));
    EXPECT_EQ(load(*session, server.url("/2")).code(), URLErrorCode::networkConnectionLost);
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST(Reuse, AGetOnANewConnectionIsNotSentAgain) {
    FaultServer server([](FaultConnection& connection) { connection.readRequest(); });
    EXPECT_EQ(load(*makeSession(), server.url()).code(), URLErrorCode::networkConnectionLost);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(Reuse, AConnectionClosedWhileIdleCausesNoFailure) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.send(answer(200, "served"));
    });
    const auto session = makeSession();
    std::size_t served = 0;
    for (const char* method : {"GET", "POST", "DELETE"}) {
        const Loaded loaded = load(*session, requestOf(server.url(), method));
        EXPECT_EQ(loaded.body(), "served") << method << ": " << loaded.story();
        ASSERT_TRUE(server.waitForEnded(++served));
    }
}
