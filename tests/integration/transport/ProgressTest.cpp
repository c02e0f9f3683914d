// The progress reports of a load, over real sockets.

#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Nghttpx.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;
using State = LoadProgress::State;

namespace {

constexpr std::size_t length = 20'000;

/// A load and its reports. Read them after the load has ended.
struct Watched {
    Loaded loaded{};
    std::shared_ptr<std::vector<LoadProgress>> reports = std::make_shared<std::vector<LoadProgress>>();
    /// Signalled with each report.
    Event reported{};

    ProgressReceiver receiver() const {
        return [reports = reports, reported = reported, calls = loaded](const LoadProgress& progress) {
            EXPECT_EQ(calls.calls(), 0) << "reported after the completion";
            reports->push_back(progress);
            reported.signal();
        };
    }
    std::shared_ptr<URLSessionDataTask> start(URLSession& session, URLRequest request) const {
        auto task = session.dataTask(std::move(request), loaded.completion(), {}, receiver());
        task->resume();
        return task;
    }
};

/// Sends bytes one by one until `isEnough` returns true or all but the last are sent. Returns how many were sent.
std::size_t sendUntil(FaultConnection& connection, const std::function<bool()>& isEnough,
                      const std::function<std::string(std::size_t)>& framed) {
    std::size_t sent = 0;
    for (; sent + 1 < length && !isEnough(); ++sent) {
        if (!connection.send(framed(1))) break;
        connection.pace(5ms);
    }
    return sent;
}

/// Answers slowly with a body of known length until `reported` was signalled three times.
FaultServer::Script measured(Event reported) {
    return [reported](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n");
            const auto plain = [](std::size_t size) { return std::string(size, 'x'); };
            const std::size_t sent = sendUntil(
                connection, [reported] { return reported.count() >= 3; }, plain);
            connection.send(plain(length - sent));
        }
    };
}

/// The same with a chunked body.
FaultServer::Script unmeasured(Event reported) {
    return [reported](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
            const auto chunk = [](std::size_t size) {
                char head[20];
                std::snprintf(head, sizeof head, "%zx\r\n", size);
                return head + std::string(size, 'x') + "\r\n";
            };
            const std::size_t sent = sendUntil(
                connection, [reported] { return reported.count() >= 3; }, chunk);
            connection.send(chunk(length - sent) + "0\r\n\r\n");
        }
    };
}

/// Expects that the reported bytes grow and end with all `length` bytes of the body.
void expectGrowth(const Watched& watched, std::int64_t expected) {
    EXPECT_EQ(watched.loaded.body().size(), length) << watched.loaded.story();
    const auto& reports = *watched.reports;
    ASSERT_GE(reports.size(), 4U);
    std::int64_t before = 0;
    for (const LoadProgress& each : reports) {
        EXPECT_EQ(each.state, State::loading);
        EXPECT_GT(each.bytesReceived, before);
        EXPECT_EQ(each.bytesExpectedToReceive, expected);
        before = each.bytesReceived;
    }
    EXPECT_EQ(reports.back().bytesReceived, static_cast<std::int64_t>(length));
}

std::shared_ptr<URLSession> sessionWithOneConnection() {
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = 1;
    return URLSession::make(configuration);
}

/// Answers after `releaseHeld`.
FaultServer::Script holding(std::unique_ptr<FaultServer>& server) {
    return [&server](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!server->hold()) return;
            connection.send(answer(200, "5"));
        }
    };
}

}  // namespace

TEST(Progress, GrowsToTheLastByteOfABody) {
    const Watched watched;
    FaultServer server(measured(watched.reported));
    const auto session = URLSession::make({});
    watched.start(*session, requestOf(server.url()));
    expectGrowth(watched, length);
}

TEST(Progress, GrowsIfTheLengthIsUnknown) {
    const Watched watched;
    FaultServer server(unmeasured(watched.reported));
    const auto session = URLSession::make({});
    watched.start(*session, requestOf(server.url()));
    expectGrowth(watched, -1);
}

TEST(Progress, GrowsOverHTTP2) {
    const CertificateAuthority root;
    const TemporaryFile bundle(root.pem());
    const Identity identity = root.issue();
    for (const bool isMeasured : {true, false}) {
        const Watched watched;
        FaultServer backend(isMeasured ? measured(watched.reported) : unmeasured(watched.reported));
        const Nghttpx front(backend.port(), identity);
        ASSERT_TRUE(front.isRunning());
        URLSessionConfiguration configuration;
        configuration.caBundlePath = bundle.path();
        const auto session = URLSession::make(configuration);
        watched.start(*session, requestOf("https://127.0.0.1:" + std::to_string(front.port()) + "/"));
        expectGrowth(watched, isMeasured ? static_cast<std::int64_t>(length) : -1);
    }
}

TEST(Progress, ReportsAShortLoadOnce) {
    FaultServer server(always(answer(200, "short")));
    const Watched watched;
    watched.start(*URLSession::make({}), requestOf(server.url()));
    ASSERT_TRUE(watched.loaded.succeeded());
    ASSERT_GE(watched.reports->size(), 1U);
    EXPECT_EQ(watched.reports->back(), (LoadProgress{.bytesReceived = 5, .bytesExpectedToReceive = 5}));
}

TEST(Progress, DoesNotReportTheEndOfATruncatedBody) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n12345");
    });
    const Watched watched;
    watched.start(*URLSession::make({}), requestOf(server.url()));
    EXPECT_FALSE(watched.loaded.succeeded());
    EXPECT_TRUE(watched.reports->empty());
}

TEST(Progress, ReportsTheBodyThatIsSent) {
    FaultServer server(always(answer(200, "")));
    URLRequest request = requestOf(server.url(), "POST");
    request.setHTTPBody(Data(std::string(100'000, 'x')));
    const Watched watched;
    watched.start(*URLSession::make({}), request);
    ASSERT_TRUE(watched.loaded.succeeded());
    ASSERT_FALSE(watched.reports->empty());
    EXPECT_EQ(watched.reports->back().bytesSent, 100'000);
    EXPECT_EQ(watched.reports->back().bytesExpectedToSend, 100'000);
}

TEST(Progress, ReportsNothingAfterACancel) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        while (connection.send("1\r\nx\r\n")) connection.pace(5ms);
    });
    const auto session = URLSession::make({});
    const Loaded loaded;
    // Used only on the delegate queue until the completion.
    std::shared_ptr<URLSessionDataTask> task;
    int reports = 0;
    task = session->dataTask(requestOf(server.url()), loaded.completion(), {}, [&](const LoadProgress&) {
        ++reports;
        task->cancel();
    });
    task->resume();
    EXPECT_EQ(loaded.code(), URLErrorCode::cancelled) << loaded.story();
    EXPECT_EQ(reports, 1);
}

TEST(Progress, ReportsHowManyLoadsWaitForAConnection) {
    std::unique_ptr<FaultServer> server;
    server = std::make_unique<FaultServer>(holding(server));
    const auto session = sessionWithOneConnection();
    const Watched first, second, third;
    first.start(*session, requestOf(server->url()));
    ASSERT_TRUE(server->waitForRequests(1));
    second.start(*session, requestOf(server->url()));
    ASSERT_TRUE(second.reported.wait(1));
    third.start(*session, requestOf(server->url()));
    ASSERT_TRUE(third.reported.wait(1));
    server->releaseHeld();
    for (const Watched* each : {&first, &second, &third}) ASSERT_TRUE(each->loaded.succeeded());
    EXPECT_EQ(first.reports->front().state, State::loading);
    std::int64_t count = 1;
    for (const Watched* each : {&second, &third}) {
        ASSERT_EQ(each->reports->size(), 3U);
        EXPECT_EQ((*each->reports)[0], (LoadProgress{.state = State::queued, .queueLength = count}));
        EXPECT_EQ((*each->reports)[1].state, State::loading);
        EXPECT_EQ((*each->reports)[2].bytesReceived, 1);
        ++count;
    }
}

namespace {

/// A resource loaded with `session`.
Resource<double> resourceOver(const std::shared_ptr<URLSession>& session, const std::string& url) {
    return Resource<double>(ResourceArguments::Service{
        .withService = NetworkServiceble::make(
            {.with = requestOf(url), .and_ = networkSession(session), .logError = LogError()}),
        .andDecoder = JSONDecoder()});
}

}  // namespace

TEST(Progress, OfAResourceIsReportedOnTheQueueOfItsOptions) {
    std::unique_ptr<FaultServer> server;
    server = std::make_unique<FaultServer>(holding(server));
    const auto session = sessionWithOneConnection();
    const Loaded first = startLoad(*session, requestOf(server->url()));
    ASSERT_TRUE(server->waitForRequests(1));
    const DispatchQueue queue("progress");
    const Event reported, ended;
    const ProgressReceiver progress = [queue, reported, ended](const LoadProgress&) {
        EXPECT_TRUE(queue.isCurrent());
        EXPECT_EQ(ended.count(), 0);
        reported.signal();
    };
    const Cancellable load = resourceOver(session, server->url())
                                 .start({.on = queue, .progress = progress}, [ended](const auto& value) {
                                     EXPECT_TRUE(value);
                                     ended.signal();
                                 });
    ASSERT_TRUE(reported.wait(1));
    server->releaseHeld();
    ASSERT_TRUE(ended.wait());
    EXPECT_EQ(reported.count(), 3) << "queued, loading, and the last byte";
}

TEST(Progress, OfAResourceEndsWithItsHandle) {
    std::unique_ptr<FaultServer> server;
    server = std::make_unique<FaultServer>(holding(server));
    const auto session = sessionWithOneConnection();
    const Loaded first = startLoad(*session, requestOf(server->url()));
    ASSERT_TRUE(server->waitForRequests(1));
    const Event reported;
    {
        const Cancellable load =
            resourceOver(session, server->url())
                .start({.progress = [reported](const LoadProgress&) { reported.signal(); }},
                       [](const auto&) { ADD_FAILURE() << "the load was cancelled"; });
        ASSERT_TRUE(reported.wait(1));
    }
    server->releaseHeld();
    ASSERT_TRUE(first.succeeded());
    ASSERT_EQ(load(*session, server->url()).body(), "5");
    EXPECT_EQ(reported.count(), 1);
}
