#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sockets.h>

#include <sys/socket.h>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

/// Answers when the test releases it.
class HoldingServer {
public:
    FaultServer& server() { return server_; }

private:
    FaultServer* reached_ = &server_;
    FaultServer server_{[this](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!reached_->hold()) return;
            connection.send(answer(200, "late"));
        }
    }};
};

}  // namespace

TEST(LifeCycle, AFinishingSessionCompletesRunningTasksAndStartsNoMore) {
    HoldingServer holding;
    const auto session = makeSession();
    const Loaded before = startLoad(*session, requestOf(holding.server().url()));
    ASSERT_TRUE(holding.server().waitForRequests(1));
    session->finishTasksAndInvalidate();
    const Loaded after = load(*session, holding.server().url());
    ASSERT_TRUE(after.error().has_value());
    EXPECT_EQ(after.code(), URLErrorCode::unknown);
    holding.server().releaseHeld();
    EXPECT_EQ(before.body(), "late");
    EXPECT_EQ(holding.server().requests().size(), 1U);
}

TEST(LifeCycle, AnInvalidatedSessionCancelsRunningAndWaitingTasks) {
    HoldingServer holding;
    const auto session = makeSession();
    std::vector<Loaded> loads;
    for (int i = 0; i < 20; ++i) loads.push_back(startLoad(*session, requestOf(holding.server().url())));
    ASSERT_TRUE(holding.server().waitForRequests(6));
    session->invalidateAndCancel();
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.code(), URLErrorCode::cancelled);
    EXPECT_EQ(load(*session, holding.server().url()).code(), URLErrorCode::unknown);
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.calls(), 1);
}

TEST(LifeCycle, OnlyIdleConnectionsAreClosed) {
    HoldingServer holding;
    FaultServer idle(always(answer(200, "idle")));
    const auto session = makeSession();
    const Loaded busy = startLoad(*session, requestOf(holding.server().url()));
    ASSERT_TRUE(holding.server().waitForRequests(1));
    EXPECT_EQ(load(*session, idle.url()).body(), "idle");
    session->closeIdleConnections();
    EXPECT_TRUE(idle.waitForClosedByClient(1));
    EXPECT_EQ(load(*session, idle.url()).body(), "idle");
    EXPECT_EQ(idle.connectionCount(), 2U);
    holding.server().releaseHeld();
    EXPECT_EQ(busy.body(), "late");
}

TEST(LifeCycle, APreparedConnectionServesTheNextRequest) {
    const CertificateAuthority root;
    const TemporaryFile file(root.pem());
    const Identity identity = root.issue();
    const std::string head = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n";
    const auto script = [&head](FaultConnection& connection) {
        while (const auto request = connection.readRequest())
            connection.send(head + (request->method == "HEAD" ? "" : "body"));
    };
    FaultServer plain(script);
    FaultServer secure(script, &identity);
    URLSessionConfiguration configuration;
    configuration.caBundlePath = file.path();
    configuration.httpMaximumConnectionsPerHost = 1;
    const auto session = URLSession::make(configuration);
    for (FaultServer* server : {&plain, &secure}) {
        session->preconnect(*URL::make(server->url("/cheap")));
        ASSERT_TRUE(server->waitForRequests(1));
        const Loaded loaded = load(*session, server->url("/now"));
        EXPECT_EQ(loaded.body(), "body") << loaded.story();
        EXPECT_EQ(server->connectionCount(), 1U);
        EXPECT_EQ(server->requests()[0].method + server->requests()[0].target, "HEAD/cheap");
    }
}

TEST(LifeCycle, AFailedPreparedConnectionIsNotReported) {
    const auto session = makeSession();
    session->preconnect(*URL::make("http://127.0.0.1:" + std::to_string(unusedPort()) + "/"));
    session->preconnect(*URL::make("ftp://127.0.0.1/"));
    FaultServer server(always(answer(200, "ok")));
    EXPECT_EQ(load(*session, server.url()).body(), "ok");
}

TEST(LifeCycle, ATaskReportsReceivedAndExpectedBytes) {
    FaultServer* reached = nullptr;
    FaultServer server([&reached](FaultConnection& connection) {
        while (connection.readRequest()) {
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nfirst");
            if (!reached->hold()) return;
            connection.send("later");
        }
    });
    reached = &server;
    const auto session = makeSession();
    URLRequest request = requestOf(server.url(), "POST");
    request.setHTTPBody(Data("abc"));
    Loaded loaded;
    const auto task = session->dataTask(request, loaded.completion());
    EXPECT_EQ(task->countOfBytesExpectedToReceive(), -1);
    EXPECT_EQ(task->countOfBytesExpectedToSend(), 3);
    EXPECT_EQ(task->countOfBytesSent(), 0);
    task->resume();
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (task->countOfBytesReceived() < 5 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(task->countOfBytesReceived(), 5);
    EXPECT_EQ(task->countOfBytesExpectedToReceive(), 10);
    server.releaseHeld();
    EXPECT_EQ(loaded.body(), "firstlater");
    EXPECT_EQ(task->countOfBytesReceived(), 10);
    EXPECT_EQ(task->countOfBytesSent(), 3);
}

TEST(LifeCycle, ARequestWaitsForConnectivityIfItsSessionDoes) {
    // A bound port refuses connections until it listens.
    auto [listener, port] = bindOnLoopback();
    URLSessionConfiguration configuration;
    configuration.waitsForConnectivity = true;
    const auto session = URLSession::make(configuration);
    const Loaded loaded = startLoad(*session, requestOf("http://127.0.0.1:" + std::to_string(port) + "/"));
    // The port still refuses connections, as a session that does not wait shows.
    EXPECT_EQ(load(*makeSession(), "http://127.0.0.1:" + std::to_string(port) + "/").code(),
              URLErrorCode::cannotConnectToHost);
    EXPECT_EQ(loaded.calls(), 0);
    ASSERT_EQ(::listen(listener.descriptor(), 1), 0);
    const Socket client(::accept4(listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
    ASSERT_TRUE(client);
    const std::string reply = answer(200, "at last");
    ASSERT_TRUE(sendAll(client.descriptor(), reply.data(), reply.size()));
    EXPECT_EQ(loaded.body(), "at last") << loaded.story();
}

TEST(LifeCycle, ARequestWaitsForConnectivityNoLongerThanTheSessionAllows) {
    URLSessionConfiguration configuration;
    configuration.waitsForConnectivity = true;
    configuration.connectivityTimeout = std::chrono::milliseconds(150);
    const auto session = URLSession::make(configuration);
    const std::string url = "http://127.0.0.1:" + std::to_string(unusedPort()) + "/";
    EXPECT_EQ(load(*session, url).code(), URLErrorCode::cannotConnectToHost);
}

TEST(LifeCycle, ARequestThatWaitsForConnectivityCanBeCancelled) {
    URLSessionConfiguration configuration;
    configuration.waitsForConnectivity = true;
    const auto session = URLSession::make(configuration);
    Loaded loaded;
    const auto task = session->dataTask(requestOf("http://127.0.0.1:" + std::to_string(unusedPort()) + "/"),
                                        loaded.completion());
    task->resume();
    // By now the first attempt of the other load has failed.
    load(*makeSession(), "http://127.0.0.1:" + std::to_string(unusedPort()) + "/");
    task->cancel();
    EXPECT_EQ(loaded.code(), URLErrorCode::cancelled);
}
