#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Nghttpx.h>
#include <support/Relay.h>

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// A session, a relay that can be frozen, an HTTP/2 server and its backend.
class HTTP2 : public testing::Test {
protected:
    void serve(FaultServer::Script script, int streamsPerConnection = 100,
               std::chrono::milliseconds distance = {}) {
        backend_ = std::make_unique<FaultServer>(std::move(script));
        front_ = std::make_unique<Nghttpx>(backend_->port(), identity_, streamsPerConnection);
        ASSERT_TRUE(front_->isRunning());
        relay_ = std::make_unique<Relay>(front_->port(), distance);
        configuration_.caBundlePath = bundle_.path();
        session_ = URLSession::make(configuration_);
    }

    std::string url(const std::string& path) const {
        return "https://127.0.0.1:" + std::to_string(relay_->port()) + path;
    }

    URLRequest request(const std::string& path, double seconds = 30,
                       const std::string& method = "GET") const {
        URLRequest made = requestOf(url(path), method);
        made.setTimeoutInterval(std::chrono::duration<double>(seconds));
        return made;
    }

    CertificateAuthority root_;
    TemporaryFile bundle_{root_.pem()};
    Identity identity_ = root_.issue();
    std::unique_ptr<FaultServer> backend_;
    std::unique_ptr<Nghttpx> front_;
    std::unique_ptr<Relay> relay_;
    /// A test changes it before `serve`.
    URLSessionConfiguration configuration_;
    std::shared_ptr<URLSession> session_;
};

/// Answers at once, except "/hold", which waits for `releaseHeld`, and "/never".
FaultServer::Script patient(std::unique_ptr<FaultServer>& server) {
    return [&server](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/never") {
                connection.stall();
                return;
            }
            if (request->target == "/hold" && !server->hold()) return;
            connection.send(answer(200, request->method + " " + request->target + " " + request->body));
        }
    };
}

/// Answers each request after `time`.
FaultServer::Script inTurn(std::chrono::milliseconds time) {
    return [time](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.pace(time);
            connection.send(answer(200, "in turn"));
        }
    };
}

}  // namespace

TEST_F(HTTP2, IsUsedIfTheServerOffersIt) {
    serve(patient(backend_));
    const Loaded loaded = load(*session_, url("/x"));
    EXPECT_EQ(loaded.body(), "GET /x ") << loaded.story();
    ASSERT_EQ(backend_->requests().size(), 1U);
    EXPECT_EQ(backend_->requests()[0].header("via"), "2 nghttpx");
}

TEST_F(HTTP2, SixtyFourInitialRequestsShareOneConnection) {
    serve(patient(backend_));
    std::vector<Loaded> loads;
    for (int i = 0; i < 64; ++i) {
        loads.push_back(startLoad(*session_, request("/" + std::to_string(i))));
    }
    for (int i = 0; i < 64; ++i) {
        EXPECT_EQ(loads[static_cast<std::size_t>(i)].body(), "GET /" + std::to_string(i) + " ");
    }
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, ManyRequestsRunConcurrentlyOnOneConnection) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    std::vector<Loaded> loads;
    for (int i = 0; i < 40; ++i) loads.push_back(startLoad(*session_, request("/hold")));
    EXPECT_TRUE(backend_->waitForRequests(41)) << "all of them concurrently";
    backend_->releaseHeld();
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "GET /hold ") << loaded.story();
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, AllRequestsToAServerWithALowStreamLimitSucceed) {
    // The interval is much shorter than the whole test, so waiting for a free stream must not count.
    serve(inTurn(std::chrono::milliseconds(150)), 2);
    std::vector<Loaded> loads;
    for (int i = 0; i < 90; ++i) loads.push_back(startLoad(*session_, request("/x", 3)));
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "in turn") << loaded.story();
}

TEST_F(HTTP2, WaitingForAFreeStreamOfAKnownLimitIsNotIdle) {
    configuration_.httpMaximumConnectionsPerHost = 1;
    serve(inTurn(std::chrono::milliseconds(150)), 2);
    // After this the limit is known, so no request is refused.
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    std::vector<Loaded> loads;
    for (int i = 0; i < 60; ++i) loads.push_back(startLoad(*session_, request("/x", 3)));
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "in turn") << loaded.story();
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, AllRequestsToADistantServerWithALowStreamLimitSucceed) {
    // It announces its stream limit after all requests were sent on a new connection. So it refuses most of them on
    // each new connection, and libcurl would finally give up.
    configuration_.httpMaximumConnectionsPerHost = 2;
    serve(inTurn(std::chrono::milliseconds(60)), 2, std::chrono::milliseconds(20));
    std::vector<Loaded> loads;
    for (int i = 0; i < 60; ++i) loads.push_back(startLoad(*session_, request("/x")));
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "in turn") << loaded.story();
}

TEST_F(HTTP2, LargeHeadersOfConcurrentResponsesAreReadCompletely) {
    std::string fields;
    for (int i = 0; i < 100; ++i) fields += "x-" + std::to_string(i) + ": " + std::string(400, 'v') + "\r\n";
    serve([fields](FaultConnection& connection) {
        while (connection.readRequest()) connection.send(answer(200, "whole", fields));
    });
    for (const char* const method : {"GET", "POST", "GET"}) {
        std::vector<Loaded> loads;
        for (int i = 0; i < 12; ++i) loads.push_back(startLoad(*session_, request("/x", 30, method)));
        for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "whole") << loaded.story();
    }
}

TEST_F(HTTP2, BodiesAreSentInBothDirections) {
    const std::string text = sampleText(2 * 1000 * 1000);
    serve([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(answer(200, gzipped(request->body), "Content-Encoding: gzip\r\n"));
        }
    });
    URLRequest post = request("/echo", 30, "POST");
    post.setHTTPBody(Data(text));
    EXPECT_TRUE(load(*session_, post).body() == text);
}

TEST_F(HTTP2, ACancelledRequestDoesNotAffectTheOthersOnItsConnection) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    const Loaded cancelled;
    const auto task = session_->dataTask(request("/never"), cancelled.completion());
    task->resume();
    const Loaded other = startLoad(*session_, request("/hold"));
    ASSERT_TRUE(backend_->waitForRequests(3));
    task->cancel();
    EXPECT_EQ(cancelled.code(), URLErrorCode::cancelled);
    // nghttpx closes its backend connection when the stream is reset.
    EXPECT_TRUE(backend_->waitForClosedByClient(1));
    backend_->releaseHeld();
    EXPECT_EQ(other.body(), "GET /hold ") << other.story();
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, CancellingTheOnlyRequestReachesTheServer) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    const Loaded cancelled;
    const auto task = session_->dataTask(request("/never"), cancelled.completion());
    task->resume();
    ASSERT_TRUE(backend_->waitForRequests(2));
    task->cancel();
    EXPECT_EQ(cancelled.code(), URLErrorCode::cancelled);
    EXPECT_TRUE(backend_->waitForClosedByClient(1));
    EXPECT_EQ(load(*session_, request("/after", 5, "POST")).status(), 200);
}

TEST_F(HTTP2, AConnectionIsKeptIfANewRequestReplacesACancelledOne) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    const Loaded cancelled;
    const auto task = session_->dataTask(request("/never"), cancelled.completion());
    task->resume();
    ASSERT_TRUE(backend_->waitForRequests(2));
    task->cancel();
    EXPECT_EQ(cancelled.code(), URLErrorCode::cancelled);
    const Loaded other = startLoad(*session_, request("/hold"));
    ASSERT_TRUE(backend_->waitForRequests(3));
    // Longer than a connection without requests is kept open.
    FaultServer stalling([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    URLRequest between = requestOf(stalling.url());
    between.setTimeoutInterval(std::chrono::milliseconds(600));
    EXPECT_EQ(load(*session_, between).code(), URLErrorCode::timedOut);
    backend_->releaseHeld();
    EXPECT_EQ(other.body(), "GET /hold ") << other.story();
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, ARequestThatReplacesACancelledOneUsesItsConnection) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    for (std::size_t i = 0; i < 5; ++i) {
        const Loaded cancelled;
        const auto task = session_->dataTask(request("/never"), cancelled.completion());
        task->resume();
        ASSERT_TRUE(backend_->waitForRequests(2 + 2 * i));
        task->cancel();
        EXPECT_EQ(load(*session_, url("/next")).status(), 200);
        EXPECT_TRUE(backend_->waitForClosedByClient(1 + i)) << "the reset was sent";
    }
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, ATimeoutDoesNotAffectTheOthersOnALiveConnection) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    const Loaded patientOne = startLoad(*session_, request("/hold"));
    ASSERT_TRUE(backend_->waitForRequests(2));
    EXPECT_EQ(load(*session_, request("/never", 0.2)).code(), URLErrorCode::timedOut);
    backend_->releaseHeld();
    EXPECT_EQ(patientOne.body(), "GET /hold ") << "it had not timed out: " << patientOne.story();
}

TEST_F(HTTP2, ASlowBodyArrivesWhileAnotherStalls) {
    serve([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n");
            if (request->target == "/stalls") {
                connection.stall();
                return;
            }
            connection.trickle("twenty bytes, slowly", std::chrono::milliseconds(110));
        }
    });
    EXPECT_EQ(load(*session_, request("/first")).body(), "twenty bytes, slowly");
    const Loaded slow = startLoad(*session_, request("/slow", 2));
    const Loaded stalled = startLoad(*session_, request("/stalls", 2));
    EXPECT_EQ(slow.body(), "twenty bytes, slowly") << slow.story();
    EXPECT_EQ(stalled.code(), URLErrorCode::timedOut) << stalled.story();
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, AStalledRequestDoesNotEndAnActiveConnection) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    const Loaded stalled = startLoad(*session_, request("/never", 0.6));
    while (stalled.calls() == 0) ASSERT_EQ(load(*session_, url("/alive")).status(), 200);
    EXPECT_EQ(stalled.code(), URLErrorCode::timedOut);
    EXPECT_EQ(load(*session_, url("/after")).status(), 200);
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, ADeadConnectionIsClosedWithTheRequestThatDetectedIt) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    relay_->freeze();
    EXPECT_EQ(load(*session_, request("/lost", 0.3)).code(), URLErrorCode::timedOut);
    EXPECT_TRUE(relay_->waitForClosedByClient(1)) << "its socket was shut down";
    for (const char* method : {"POST", "GET"}) {
        const Loaded loaded = load(*session_, request("/next", 5, method));
        EXPECT_EQ(loaded.status(), 200) << loaded.story();
    }
    EXPECT_EQ(relay_->connectionCount(), 2U);
}

TEST_F(HTTP2, ADeadUnusedConnectionIsClosed) {
    serve(patient(backend_));
    EXPECT_EQ(load(*session_, request("/never", 0.4)).code(), URLErrorCode::timedOut);
    EXPECT_TRUE(relay_->waitForClosedByClient(1));
    EXPECT_EQ(load(*session_, request("/x", 5)).status(), 200);
    EXPECT_EQ(relay_->connectionCount(), 2U);
}

TEST_F(HTTP2, NewRequestsAvoidASuspectConnectionWhileOthersWaitOnIt) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    relay_->freeze();
    const Loaded waiting = startLoad(*session_, request("/waits", 3));
    EXPECT_EQ(load(*session_, request("/lost", 0.3)).code(), URLErrorCode::timedOut);
    for (int i = 0; i < 3; ++i) {
        const Loaded loaded = load(*session_, request("/next", 2));
        EXPECT_EQ(loaded.status(), 200) << loaded.story();
    }
    EXPECT_EQ(waiting.calls(), 0) << "its timeout is unchanged";
    EXPECT_EQ(waiting.code(), URLErrorCode::timedOut);
    EXPECT_TRUE(relay_->waitForClosedByClient(1));
}

TEST_F(HTTP2, AServerThatDisconnectsLosesTheConnection) {
    serve(patient(backend_));
    ASSERT_EQ(load(*session_, url("/warm")).status(), 200);
    const Loaded post = startLoad(*session_, request("/never", 30, "POST"));
    ASSERT_TRUE(backend_->waitForRequests(2));
    front_->kill();
    EXPECT_EQ(post.code(), URLErrorCode::networkConnectionLost) << post.story();
}

TEST_F(HTTP2, ATruncatedBodyIsALostConnection) {
    serve([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\nonly this");
        connection.pace(std::chrono::milliseconds(100));
    });
    const Loaded loaded = load(*session_, url("/short"));
    EXPECT_EQ(loaded.code(), URLErrorCode::networkConnectionLost) << loaded.story();
    EXPECT_EQ(loaded.data(), std::nullopt);
}

TEST_F(HTTP2, AHeadWithTooManyLinesFailsAndTheConnectionIsKept) {
    serve([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            std::string lines;
            for (int i = 0; request->target == "/many" && i < 1500; ++i) {
                lines += "h" + std::to_string(i) + ": 1\r\n";
            }
            connection.send(answer(200, "here", lines));
        }
    });
    const Loaded loaded = load(*session_, url("/many"));
    EXPECT_EQ(loaded.code(), URLErrorCode::dataLengthExceedsMaximum) << loaded.story();
    EXPECT_EQ(load(*session_, url("/next")).body(), "here");
    EXPECT_EQ(relay_->connectionCount(), 1U);
}

TEST_F(HTTP2, UndeliveredResponsesStopReadingAndLaterAllArrive) {
    constexpr std::size_t size = 512 * 1024;
    configuration_.limits.maxUndeliveredBytes = 4 * size;
    serve(always(answer(200, std::string(size, 'x'))));
    std::mutex blockade;
    std::unique_lock lock(blockade);
    session_->delegateQueue().async([&blockade] { const std::lock_guard wait(blockade); });
    std::vector<Loaded> loads;
    // The idle timeout does not run while a load or its connection is paused.
    for (int i = 0; i < 60; ++i) loads.push_back(startLoad(*session_, request("/", 4)));
    // This takes longer than their idle timeout.
    FaultServer stalling([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    const auto other = URLSession::make(URLSessionConfiguration::default_());
    URLRequest timer = requestOf(stalling.url());
    timer.setTimeoutInterval(std::chrono::milliseconds(4500));
    EXPECT_EQ(load(*other, timer).code(), URLErrorCode::timedOut);
    EXPECT_EQ(loads.front().calls(), 0);
    lock.unlock();
    for (const Loaded& loaded : loads) ASSERT_EQ(loaded.body().size(), size) << loaded.story();
    EXPECT_EQ(load(*session_, request("/")).status(), 200);
}

TEST_F(HTTP2, CodedBodiesExpandingAtOnceAllArrive) {
    const std::string text = std::string(2 * 1024 * 1024, 'x') + sampleText(200'000);
    configuration_.limits.maxDecodingRatio = URLSessionLimits::unlimited;
    serve(always(answer(200, gzipped(text), "Content-Encoding: gzip\r\n")));
    std::vector<Loaded> loads;
    for (int i = 0; i < 30; ++i) loads.push_back(startLoad(*session_, request("/")));
    for (const Loaded& loaded : loads) ASSERT_TRUE(loaded.body() == text) << loaded.story();
}
