#include <VanticRestKit/platform/http/cache/URLCache.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Nghttpx.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Duration = RequestMetrics::Duration;

/// A load and its metrics, which are complete when the load has ended.
struct Recorded {
    Loaded loaded{};
    std::shared_ptr<std::vector<RequestMetrics>> records = std::make_shared<std::vector<RequestMetrics>>();
    /// The number of records when the completion ran.
    std::shared_ptr<std::size_t> recordsAtEnd = std::make_shared<std::size_t>(0);

    std::shared_ptr<URLSessionDataTask> task(URLSession& session, URLRequest request) const {
        auto completion = [all = records, atEnd = recordsAtEnd, inner = loaded.completion()](
                              std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                              std::optional<Error> error) mutable {
            *atEnd = all->size();
            inner(std::move(data), std::move(response), std::move(error));
        };
        return session.dataTask(std::move(request), std::move(completion),
                                [all = records](const RequestMetrics& each) { all->push_back(each); });
    }
    /// The only record of a load, which must have ended.
    const RequestMetrics& only() const {
        static const RequestMetrics none;
        EXPECT_TRUE(loaded.wait());
        EXPECT_EQ(records->size(), 1U);
        EXPECT_EQ(*recordsAtEnd, records->size()) << "a record came after the completion";
        return records->size() == 1 ? records->front() : none;
    }
};

Recorded startRecorded(URLSession& session, URLRequest request) {
    Recorded recorded;
    recorded.task(session, std::move(request))->resume();
    return recorded;
}

Recorded recorded(URLSession& session, URLRequest request) {
    Recorded made = startRecorded(session, std::move(request));
    made.loaded.wait();
    return made;
}

std::shared_ptr<URLSession> makeSession(std::int64_t connections = 6) {
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = connections;
    return URLSession::make(configuration);
}

}  // namespace

TEST(Metrics, RecordTheRequestAndItsOutcome) {
    FaultServer server(always(answer(404, "none")));
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf(server.url("/a?b=c"), "DELETE"));
    const RequestMetrics& record = made.only();
    EXPECT_EQ(record.method, "DELETE");
    EXPECT_EQ(record.url, server.url("/a?b=c"));
    EXPECT_EQ(record.status, 404);
    EXPECT_FALSE(record.error);
    EXPECT_EQ(record.source, AnswerSource::network);
    EXPECT_EQ(record.protocol, "http/1.1");
    EXPECT_EQ(record.attempt, 1);
    EXPECT_EQ(record.redirects, 0);
    EXPECT_GT(record.total, Duration::zero());
}

TEST(Metrics, HaveTheProtocolOfAnOldServer) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.send("HTTP/1.0 200 OK\r\n\r\nold");
    });
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf(server.url()));
    EXPECT_EQ(made.loaded.body(), "old");
    EXPECT_EQ(made.only().protocol, "http/1.0");
}

TEST(Metrics, DistinguishNewAndReusedConnections) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const Recorded first = recorded(*session, requestOf(server.url()));
    EXPECT_TRUE(first.only().isNewConnection);
    EXPECT_TRUE(first.only().lookup);
    EXPECT_TRUE(first.only().connect);
    EXPECT_FALSE(first.only().tls);
    const Recorded second = recorded(*session, requestOf(server.url()));
    EXPECT_FALSE(second.only().isNewConnection);
    EXPECT_FALSE(second.only().lookup);
    EXPECT_FALSE(second.only().connect);
    EXPECT_TRUE(second.only().firstByte);
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(Metrics, MeasureTheTimeOfTheServer) {
    std::atomic<Duration::rep> thought = 0;
    FaultServer server([&thought](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        const auto begun = Clock::now();
        connection.pace(500ms);
        thought = std::chrono::duration_cast<Duration>(Clock::now() - begun).count();
        connection.send(answer(200, "ok"));
    });
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf(server.url()));
    const RequestMetrics& record = made.only();
    ASSERT_TRUE(record.firstByte);
    // libcurl reads the time once per iteration, so its clock may lag by a few milliseconds.
    EXPECT_GE(*record.firstByte, Duration(thought.load() / 2));
    EXPECT_GE(record.total, record.queued + *record.connect + *record.firstByte);
    EXPECT_LT(*record.connect, 500ms) << "the server's time does not count as connection time";
}

TEST(Metrics, MeasureTheTimeInTheQueue) {
    std::atomic<Clock::rep> answered = 0;
    FaultServer server([&answered](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/first") {
                connection.pace(500ms);
                answered = Clock::now().time_since_epoch().count();
            }
            connection.send(answer(200, "ok"));
        }
    });
    const auto session = makeSession(1);
    const Recorded first = startRecorded(*session, requestOf(server.url("/first")));
    ASSERT_TRUE(server.waitForRequests(1));
    const Recorded second = startRecorded(*session, requestOf(server.url("/second")));
    const auto started = Clock::now();
    ASSERT_TRUE(second.loaded.wait());
    const Clock::time_point freed{Clock::duration(answered.load())};
    EXPECT_GE(second.only().queued, std::chrono::floor<Duration>(freed - started));
    EXPECT_GE(second.only().total, second.only().queued);
    EXPECT_LT(first.only().queued, 500ms);
}

TEST(Metrics, CountBytesOnTheWireAndDecodedBytes) {
    const std::string text = sampleText(20'000);
    const std::string body = gzipped(text);
    const std::string whole = answer(200, body, "Content-Encoding: gzip\r\n");
    FaultServer server(always(whole));
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf(server.url()));
    const RequestMetrics& record = made.only();
    EXPECT_EQ(record.bodyBytesReceived, static_cast<std::int64_t>(body.size()));
    EXPECT_EQ(record.headBytesReceived, static_cast<std::int64_t>(whole.size() - body.size()));
    EXPECT_EQ(record.bodyBytesDecoded, static_cast<std::int64_t>(text.size()));
}

TEST(Metrics, CountTheBodyThatWasSent) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    for (const std::size_t size : std::vector<std::size_t>{0, 10, 1010, 2'000'000}) {
        URLRequest request = requestOf(server.url(), "POST");
        request.setHTTPBody(Data(std::string(size, 'x')));
        EXPECT_EQ(recorded(*session, request).only().bodyBytesSent, static_cast<std::int64_t>(size));
    }
}

TEST(Metrics, EachRequestOfARedirectIsRecorded) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            const bool isFirst = request->target == "/from";
            connection.send(isFirst ? answer(302, "moved", "Location: /to\r\n") : answer(200, "here"));
        }
    });
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf(server.url("/from"), "POST"));
    ASSERT_EQ(made.records->size(), 2U);
    const RequestMetrics& first = made.records->front();
    EXPECT_EQ(first.url, server.url("/from"));
    EXPECT_EQ(first.method, "POST");
    EXPECT_EQ(first.status, 302);
    EXPECT_EQ(first.redirects, 0);
    EXPECT_TRUE(first.isNewConnection);
    EXPECT_EQ(first.bodyBytesDecoded, 0);
    const RequestMetrics& second = made.records->back();
    EXPECT_EQ(second.url, server.url("/to"));
    EXPECT_EQ(second.method, "GET");
    EXPECT_EQ(second.status, 200);
    EXPECT_EQ(second.redirects, 1);
    EXPECT_FALSE(second.isNewConnection);
    EXPECT_EQ(second.bodyBytesDecoded, 4);
}

TEST(Metrics, ARedirectThatIsNotFollowedStatesTheReason) {
    FaultServer server(always(answer(302, "", "Location: ftp://127.0.0.1/\r\n")));
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf(server.url()));
    ASSERT_EQ(made.records->size(), 2U);
    EXPECT_EQ(made.records->front().status, 302);
    EXPECT_EQ(made.records->back().url, "ftp://127.0.0.1/");
    EXPECT_EQ(made.records->back().status, std::nullopt);
    EXPECT_EQ(made.records->back().protocol, "");
    ASSERT_TRUE(made.records->back().error);
    EXPECT_EQ(made.records->back().error->code(), static_cast<std::int64_t>(URLErrorCode::unsupportedURL));
}

TEST(Metrics, ARequestThatCannotBeSentHasARecord) {
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf("ftp://127.0.0.1/"));
    ASSERT_TRUE(made.only().error);
    EXPECT_EQ(made.only().error->code(), static_cast<std::int64_t>(URLErrorCode::unsupportedURL));
    EXPECT_FALSE(made.only().isNewConnection);
}

TEST(Metrics, AnAbsentServerHasARecord) {
    std::uint16_t port = 0;
    {
        FaultServer stopped(always(answer(200, "ok")));
        port = stopped.port();
    }
    const auto session = makeSession();
    const Recorded made = recorded(*session, requestOf("http://127.0.0.1:" + std::to_string(port) + "/"));
    const RequestMetrics& record = made.only();
    ASSERT_TRUE(record.error);
    EXPECT_EQ(record.error->code(), static_cast<std::int64_t>(URLErrorCode::cannotConnectToHost));
    EXPECT_EQ(record.status, std::nullopt);
    EXPECT_FALSE(record.firstByte);
    EXPECT_EQ(record.bodyBytesReceived, 0);
}

TEST(Metrics, ACancelledRequestHasARecordOfItsProgress) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nsome of it");
        connection.stall();
    });
    const auto session = makeSession();
    const Recorded made;
    const auto task = made.task(*session, requestOf(server.url()));
    task->resume();
    ASSERT_TRUE(server.waitForRequests(1));
    task->cancel();
    const RequestMetrics& record = made.only();
    ASSERT_TRUE(record.error);
    EXPECT_EQ(record.error->code(), static_cast<std::int64_t>(URLErrorCode::cancelled));
    EXPECT_TRUE(record.isNewConnection);
    EXPECT_GE(record.total, *record.connect);
}

TEST(Metrics, ATaskCancelledBeforeItsStartHasARecord) {
    const auto session = makeSession();
    const Recorded made;
    made.task(*session, requestOf("http://127.0.0.1:1/"))->cancel();
    ASSERT_TRUE(made.only().error);
    EXPECT_EQ(made.only().error->code(), static_cast<std::int64_t>(URLErrorCode::cancelled));
    EXPECT_EQ(made.only().total, Duration::zero());
}

TEST(Metrics, EachSubscriptionOfAPublisherIsRecorded) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    std::vector<RequestMetrics> records;
    const auto publisher = session->dataTaskPublisher(
        requestOf(server.url()), [&records](const RequestMetrics& each) { records.push_back(each); });
    for (int i = 0; i < 2; ++i) {
        const Loaded loaded;
        auto completion = std::make_shared<URLSession::Completion>(loaded.completion());
        const Cancellable subscription = publisher.sink(
            [](const URLSession::Output&) {},
            [completion](const Result<void, Error>&) { (*completion)(std::nullopt, nullptr, std::nullopt); });
        ASSERT_TRUE(loaded.wait());
    }
    EXPECT_EQ(records.size(), 2U);
}

TEST(Metrics, IncludeTheTimeForTLSAndTheProtocol) {
    const CertificateAuthority root;
    const TemporaryFile bundle(root.pem());
    URLSessionConfiguration configuration;
    configuration.caBundlePath = bundle.path();
    const auto session = URLSession::make(configuration);
    FaultServer server(always(answer(200, "ok")));
    const Nghttpx front(server.port(), root.issue());
    ASSERT_TRUE(front.isRunning());
    const std::string url = "https://127.0.0.1:" + std::to_string(front.port()) + "/";
    const Recorded first = recorded(*session, requestOf(url));
    EXPECT_EQ(first.only().protocol, "h2");
    ASSERT_TRUE(first.only().tls);
    EXPECT_GT(*first.only().tls, Duration::zero());
    EXPECT_GT(*first.only().tls, *first.only().lookup);
    const Recorded second = recorded(*session, requestOf(url));
    EXPECT_FALSE(second.only().tls);
    EXPECT_EQ(second.only().protocol, "h2");
}

TEST(Metrics, DistinguishResponsesOfTheCacheAndTheServer) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->has("if-none-match")) {
                connection.send("HTTP/1.1 304 Not Modified\r\nETag: \"1\"\r\n\r\n");
            } else if (request->target == "/from") {
                connection.send(answer(301, "", "Location: /to\r\nCache-Control: max-age=600\r\n"));
            } else {
                const bool isFresh = request->target == "/to";
                connection.send(answer(200, "here",
                                       isFresh ? "Cache-Control: max-age=600\r\n"
                                               : "Cache-Control: no-cache\r\nETag: \"1\"\r\n"));
            }
        }
    });
    URLSessionConfiguration configuration;
    configuration.urlCache = URLCache::make();
    const auto session = URLSession::make(configuration);

    EXPECT_EQ(recorded(*session, requestOf(server.url("/asked"))).only().source, AnswerSource::network);
    const Recorded again = recorded(*session, requestOf(server.url("/asked")));
    EXPECT_EQ(again.only().source, AnswerSource::revalidated);
    EXPECT_EQ(again.only().bodyBytesReceived, 0);
    EXPECT_EQ(again.only().bodyBytesDecoded, 4);
    EXPECT_TRUE(again.only().firstByte);

    EXPECT_EQ(recorded(*session, requestOf(server.url("/from"))).records->size(), 2U);
    const Recorded kept = recorded(*session, requestOf(server.url("/from")));
    ASSERT_EQ(kept.records->size(), 2U);
    EXPECT_EQ(kept.records->front().source, AnswerSource::cache);
    EXPECT_EQ(kept.records->front().status, 301);
    EXPECT_EQ(kept.records->back().source, AnswerSource::cache);
    EXPECT_EQ(kept.records->back().status, 200);
    EXPECT_EQ(kept.records->back().queued, Duration::zero());
    EXPECT_FALSE(kept.records->back().firstByte);
    EXPECT_EQ(server.requests().size(), 4U);
}

TEST(Metrics, ARecordOfAnAttemptHasItsNumber) {
    std::vector<std::int64_t> attempts;
    const MetricsReceiver receiver = [&attempts](const RequestMetrics& each) {
        attempts.push_back(each.attempt);
    };
    ofAttempt(receiver, 3)(RequestMetrics());
    EXPECT_EQ(attempts, std::vector<std::int64_t>{3});
    EXPECT_FALSE(ofAttempt({}, 3));
}
