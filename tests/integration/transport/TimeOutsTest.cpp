#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <limits>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

URLRequest impatient(const std::string& url, double seconds, const std::string& method = "GET") {
    URLRequest request = requestOf(url, method);
    request.setTimeoutInterval(std::chrono::duration<double>(seconds));
    return request;
}

/// Runs a request and measures its duration.
std::pair<Loaded, double> timed(const URLRequest& request) {
    const auto session = makeSession();
    const auto before = Clock::now();
    const Loaded loaded = load(*session, request);
    return {loaded, std::chrono::duration<double>(Clock::now() - before).count()};
}

/// Sends `begin` and then nothing more.
FaultServer::Script stallingAfter(std::string begin) {
    return [begin = std::move(begin)](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send(begin);
        connection.stall();
    };
}

}  // namespace

TEST(TimeOuts, AStalledServerTimesOutAfterTheInterval) {
    const std::string starts[] = {"", "HTTP/1.1 200", "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n",
                                  "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n",
                                  "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhello"};
    for (const std::string& start : starts) {
        FaultServer server(stallingAfter(start));
        const auto [loaded, seconds] = timed(impatient(server.url(), 0.2));
        EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << start << ": " << loaded.story();
        EXPECT_GE(seconds, 0.19) << start;
        EXPECT_LT(seconds, 15) << start;
        // Its socket is closed too.
        EXPECT_TRUE(server.waitForClosedByClient(1));
    }
}

TEST(TimeOuts, ASlowBodyDoesNotTimeOut) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n");
        connection.trickle("twenty bytes, slowly", milliseconds(120));
    });
    const auto [loaded, seconds] = timed(impatient(server.url(), 2));
    EXPECT_EQ(loaded.body(), "twenty bytes, slowly") << loaded.story();
    EXPECT_GT(seconds, 2);
}

TEST(TimeOuts, SlowHeadersDoNotTimeOut) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.trickle("HTTP/1.1 200 OK\r\nX: y\r\nContent-Length: 2\r\n\r\n", milliseconds(50));
        connection.send("ok");
    });
    const auto [loaded, seconds] = timed(impatient(server.url(), 2));
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
    EXPECT_GT(seconds, 2);
}

TEST(TimeOuts, ASlowCodedBodyDoesNotTimeOutEvenWithoutDecodedOutput) {
    // A block of this size gives no output until a large part of it has arrived.
    const std::string coded = gzipped("short enough for one block");
    FaultServer server([&coded](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: " +
                        std::to_string(coded.size()) + "\r\n\r\n");
        connection.trickle(coded, milliseconds(60));
    });
    const auto [loaded, seconds] = timed(impatient(server.url(), 2));
    EXPECT_EQ(loaded.body(), "short enough for one block") << loaded.story();
    EXPECT_GT(seconds, 2);
}

TEST(TimeOuts, AnActiveUploadContinuesAndAStalledOneTimesOut) {
    const std::string body(24 * 1024 * 1024, 'u');
    for (const bool stalls : {false, true}) {
        FaultServer server([stalls](FaultConnection& connection) {
            const auto head = connection.readHead();
            if (!head) return;
            if (stalls) {
                connection.ignore();
                return;
            }
            connection.readSlowly(std::stoull(head->header("content-length")), 1024 * 1024, milliseconds(90));
            connection.send(answer(200, "thanks"));
        });
        URLRequest request = impatient(server.url(), 2, "POST");
        request.setHTTPBody(Data(body));
        const auto [loaded, seconds] = timed(request);
        if (stalls) {
            EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << loaded.story();
        } else {
            EXPECT_EQ(loaded.body(), "thanks") << loaded.story();
            EXPECT_GT(seconds, 2);
        }
    }
}

TEST(TimeOuts, WaitingForAConnectionDoesNotCount) {
    // One connection serves four requests, each of which takes most of the interval.
    FaultServer server([](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.pace(milliseconds(800));
            connection.send(answer(200, "in turn"));
        }
    });
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = 1;
    const auto session = URLSession::make(configuration);
    std::vector<Loaded> loads;
    for (int i = 0; i < 4; ++i) loads.push_back(startLoad(*session, impatient(server.url(), 2.5)));
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "in turn") << loaded.story();
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(TimeOuts, ATimedOutRequestFreesItsConnection) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/stall") {
                connection.stall();
                return;
            }
            connection.send(answer(200, "served"));
        }
    });
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = 1;
    const auto session = URLSession::make(configuration);
    const Loaded first = startLoad(*session, impatient(server.url("/stall"), 0.2));
    const Loaded second = startLoad(*session, requestOf(server.url("/serve")));
    EXPECT_EQ(first.code(), URLErrorCode::timedOut);
    EXPECT_EQ(second.body(), "served") << second.story();
}

TEST(TimeOuts, ARequestWithoutAnIntervalUsesTheSessions) {
    FaultServer server(stallingAfter(""));
    URLSessionConfiguration configuration;
    configuration.timeoutIntervalForRequest = std::chrono::duration<double>(0.2);
    const auto session = URLSession::make(configuration);
    EXPECT_EQ(load(*session, impatient(server.url(), 0)).code(), URLErrorCode::timedOut);
    EXPECT_EQ(load(*session, impatient(server.url(), -1)).code(), URLErrorCode::timedOut);
}

TEST(TimeOuts, AnExtremelyLongIntervalIsAccepted) {
    FaultServer server(always(answer(200, "ok")));
    for (const double seconds : {1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(timed(impatient(server.url(), seconds)).first.body(), "ok");
    }
    EXPECT_EQ(timed(impatient(server.url(), std::numeric_limits<double>::quiet_NaN())).first.body(), "ok");
}

TEST(TimeOuts, ASlowCompletionDelaysNoTimeoutAndNoTransfer) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/stall") {
                connection.stall();
                return;
            }
            connection.send(answer(200, request->target));
        }
    });
    const auto session = makeSession();
    Loaded slow;
    std::mutex mutex;
    std::condition_variable changed;
    bool goOn = false;
    bool inside = false;
    session
        ->dataTask(requestOf(server.url("/first")),
                   [&, inner = slow.completion()](auto data, auto response, auto error) mutable {
                       std::unique_lock lock(mutex);
                       inside = true;
                       changed.notify_all();
                       changed.wait_for(lock, std::chrono::seconds(30), [&] { return goOn; });
                       inner(std::move(data), std::move(response), std::move(error));
                   })
        ->resume();
    {
        std::unique_lock lock(mutex);
        ASSERT_TRUE(changed.wait_for(lock, std::chrono::seconds(30), [&] { return inside; }));
    }
    // While the delegate queue is blocked, requests are still sent, answered and timed out.
    const Loaded stalled = startLoad(*session, impatient(server.url("/stall"), 0.2));
    const Loaded second = startLoad(*session, requestOf(server.url("/second")));
    EXPECT_TRUE(server.waitForRequests(3));
    EXPECT_TRUE(server.waitForClosedByClient(1)) << "the timeout was delayed";
    EXPECT_EQ(stalled.calls() + second.calls() + slow.calls(), 0);
    {
        const std::lock_guard lock(mutex);
        goOn = true;
        changed.notify_all();
    }
    EXPECT_EQ(slow.body(), "/first");
    EXPECT_EQ(second.body(), "/second");
    EXPECT_EQ(stalled.code(), URLErrorCode::timedOut);
}
