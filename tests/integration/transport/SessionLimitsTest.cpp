#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

constexpr std::size_t megabyte = 1024 * 1024;

std::shared_ptr<URLSession> sessionWith(const URLSessionLimits& limits) {
    URLSessionConfiguration configuration;
    configuration.limits = limits;
    return URLSession::make(configuration);
}

/// The code and the reason of a load that exceeded a limit.
std::string failureOf(const Loaded& loaded) {
    if (!loaded.error()) return loaded.story();
    const auto info = loaded.error()->userInfo();
    const auto found = info.find("NSDebugDescription");
    const std::string reason = found == info.end() ? "" : *found->second.text();
    return std::string(loaded.error()->domain()) + " " + std::to_string(loaded.error()->code()) + " " +
           reason;
}

/// Sends `head`, and then `piece` until the client closes the connection.
FaultServer::Script endless(const std::string& head, const std::string& piece) {
    return [head, piece](FaultConnection& connection) {
        if (!connection.readRequest() || !connection.send(head)) return;
        while (connection.send(piece)) {
        }
    };
}

}  // namespace

TEST(SessionLimits, AnEndlessBodyFailsAndItsConnectionIsClosed) {
    FaultServer server(endless("HTTP/1.1 200 OK\r\n\r\n", std::string(100'000, 'x')));
    const auto session = sessionWith({.maxBodyBytesOnWire = 4 * megabyte});
    EXPECT_EQ(failureOf(load(*session, server.url())),
              "NSURLErrorDomain -1103 The body of the answer is larger than 4 MB (maxBodyBytesOnWire).");
    EXPECT_TRUE(server.waitForEnded(1)) << "the server still sends";
}

TEST(SessionLimits, ADeclaredLengthAboveTheLimitFailsWithTheFirstPiece) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 268435457\r\n\r\nx");
        connection.stall();
    });
    EXPECT_EQ(failureOf(load(*sessionWith({}), server.url())),
              "NSURLErrorDomain -1103 The body of the answer is larger than 256 MB (maxBodyBytesOnWire).");
}

TEST(SessionLimits, TheLengthOfAnAbsentBodyIsNotLimited) {
    FaultServer server(always("HTTP/1.1 200 OK\r\nContent-Length: 268435457\r\n\r\n"));
    const Loaded loaded = load(*sessionWith({}), requestOf(server.url(), "HEAD"));
    EXPECT_EQ(loaded.status(), 200) << loaded.story();
}

TEST(SessionLimits, ABodyThatExpandsTooMuchFails) {
    FaultServer server(
        always(answer(200, gzipped(std::string(8 * megabyte, 'x')), "Content-Encoding: gzip\r\n")));
    EXPECT_EQ(failureOf(load(*sessionWith({}), server.url())),
              "NSURLErrorDomain -1103 The body of the answer decodes to more than 200 times its size "
              "(maxDecodingRatio).");
    const auto patient = sessionWith({.maxDecodingRatio = URLSessionLimits::unlimited});
    EXPECT_EQ(load(*patient, server.url()).body().size(), 8 * megabyte);
    const auto strict = sessionWith({.maxBodyBytes = 8 * megabyte - 1, .maxDecodingRatio = 100'000});
    EXPECT_EQ(failureOf(load(*strict, server.url())),
              "NSURLErrorDomain -1103 The body of the answer is larger than 8388607 bytes (maxBodyBytes).");
}

TEST(SessionLimits, TheLimitsOfTheHeadCanBeSet) {
    FaultServer server(always(answer(200, "ok", "X: " + std::string(1000, 'x') + "\r\n")));
    EXPECT_EQ(
        failureOf(load(*sessionWith({.maxHeaderLineBytes = 1000}), server.url())),
        "NSURLErrorDomain -1103 A header line of the answer is longer than 1000 bytes (maxHeaderLineBytes).");
    EXPECT_EQ(failureOf(load(*sessionWith({.maxHeadBytes = 1024}), server.url())),
              "NSURLErrorDomain -1103 The headers of the answer are larger than 1 KB (maxHeadBytes).");
    EXPECT_EQ(failureOf(load(*sessionWith({.maxHeadLines = 3}), server.url())),
              "NSURLErrorDomain -1103 The answer has more than 3 header lines (maxHeadLines).");
}

TEST(SessionLimits, TheNumberOfRedirectsCanBeSet) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(answer(302, "", "Location: " + request->target + "x\r\n"));
        }
    });
    EXPECT_EQ(failureOf(load(*sessionWith({.maxRedirects = 2}), server.url())),
              "NSURLErrorDomain -1007 The load was redirected more than 2 times (maxRedirects).");
    EXPECT_TRUE(server.waitForRequests(3));
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST(SessionLimits, NoMoreConnectionsStayOpenThanTheLimitAllows) {
    FaultServer first(always(answer(200, "first")));
    // Its connection is clearly the newer one.
    FaultServer second([](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.pace(std::chrono::milliseconds(20));
            connection.send(answer(200, "second"));
        }
    });
    const auto session = sessionWith({.maxIdleConnections = 1});
    ASSERT_TRUE(load(*session, first.url()).succeeded());
    ASSERT_TRUE(load(*session, second.url()).succeeded());
    ASSERT_TRUE(load(*session, second.url()).succeeded());
    EXPECT_EQ(second.connectionCount(), 1U) << "the newest connection is kept";
    EXPECT_TRUE(first.waitForEnded(1)) << "the first connection is still open";
}

TEST(SessionLimits, ALoadBeyondTheQueueLimitOfItsOriginFailsAtOnce) {
    FaultServer server([&server](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!server.hold()) return;
            connection.send(answer(200, "at last"));
        }
    });
    FaultServer other(always(answer(200, "other")));
    const auto session = sessionWith({.maxQueuedLoadsPerOrigin = 3});
    std::vector<Loaded> loads;
    // Six have a connection, three wait.
    for (int i = 0; i < 9; ++i) loads.push_back(startLoad(*session, requestOf(server.url())));
    EXPECT_EQ(
        failureOf(load(*session, server.url())),
        "NSURLErrorDomain -1105 3 loads wait for a connection to this origin (maxQueuedLoadsPerOrigin).");
    EXPECT_EQ(load(*session, other.url()).body(), "other");
    server.releaseHeld();
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "at last") << loaded.story();
    EXPECT_EQ(load(*session, server.url()).body(), "at last");
}
