// The cancellable ways to load a `Resource`, over real sockets.

#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <thread>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;

namespace {

using Outcome = Result<Data, LoaderError>;

void stall(FaultConnection& connection) {
    if (!connection.readRequest()) return;
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nsome of it");
    connection.stall();
}

/// The same kind of service as the shared session's, with the test's own session.
Resource<Data> resourceOf(const std::shared_ptr<URLSession>& session, const std::string& url) {
    const auto service = NetworkServiceble::make(
        {.with = requestOf(url), .and_ = networkSession(session), .logError = nullptr});
    return Resource<Data>({.withService = service, .andDecoder = JSONDecoder()});
}

std::int64_t codeOf(const Outcome& outcome) {
    if (outcome) return 0;
    const auto* const error = outcome.error().underlyingError()->as<NetworkError>();
    return error != nullptr && error->underlyingError() ? error->underlyingError()->code() : 1;
}

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

}  // namespace

TEST(Forms, CloseTheSocketWhenCancelledDroppedOrLate) {
    FaultServer server(stall);
    const auto session = makeSession();
    const Resource<Data> resource = resourceOf(session, server.url());
    const Event delivered;
    std::vector<std::int64_t> codes;
    const auto keep = [&codes, delivered, &session](Outcome outcome) {
        EXPECT_TRUE(session->delegateQueue().isCurrent());
        codes.push_back(codeOf(outcome));
        delivered.signal();
    };

    Cancellable handle = resource.start({}, keep);
    ASSERT_TRUE(server.waitForRequests(1));
    handle.cancel();
    EXPECT_TRUE(server.waitForClosedByClient(1));
    ASSERT_TRUE(delivered.wait(1));

    handle = resource.start({}, keep);
    ASSERT_TRUE(server.waitForRequests(2));
    handle = Cancellable();
    EXPECT_TRUE(server.waitForClosedByClient(2));

    handle = resource.start({.deadline = 50ms}, keep);
    EXPECT_TRUE(server.waitForClosedByClient(3));
    ASSERT_TRUE(delivered.wait(2));
    EXPECT_EQ(codes, (std::vector<std::int64_t>{-999, -1001}));
}

TEST(Forms, CanMissTheirDeadlineWhileWaitingForAConnection) {
    FaultServer server(stall);
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = 1;
    const auto session = URLSession::make(configuration);
    const Cancellable first = resourceOf(session, server.url()).start({}, [](Outcome) {});
    ASSERT_TRUE(server.waitForRequests(1));
    EXPECT_EQ(codeOf(resourceOf(session, server.url("/second")).wait({.deadline = 20ms})), -1001);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(Forms, DeliverOnceIfACancelRacesTheResponse) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const Resource<Data> resource = resourceOf(session, server.url());
    const Event delivered;
    constexpr int rounds = 200;
    for (int round = 0; round < rounds; ++round) {
        std::stop_source stop;
        const Cancellable handle =
            resource.start({.stop = stop.get_token()}, [delivered](Outcome) { delivered.signal(); });
        std::thread stopping([&] {
            if (round % 3 == 0) static_cast<void>(server.waitForRequests(static_cast<std::size_t>(1)));
            stop.request_stop();
        });
        if (round % 2 == 0) handle.cancel();
        stopping.join();
        ASSERT_TRUE(delivered.wait(round + 1));
    }
    EXPECT_TRUE(resource.wait());
    EXPECT_EQ(delivered.count(), rounds);
}

TEST(Forms, TenThousandCanBeCancelledAtOnce) {
    FaultServer server(stall);
    const auto session = makeSession();
    const Resource<Data> resource = resourceOf(session, server.url());
    const Event delivered;
    constexpr int count = 10000;
    std::stop_source stop;
    for (int i = 0; i < count; ++i) {
        resource
            .start({.stop = stop.get_token()},
                   [delivered](Outcome outcome) {
                       EXPECT_EQ(codeOf(outcome), -999);
                       delivered.signal();
                   })
            .detach();
    }
    stop.request_stop();
    EXPECT_TRUE(delivered.wait(count));
}
