#include <VanticRestKit/platform/http/curl/detail/CurlTransport.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>
#include <VanticRestKit/platform/http/detail/Transport.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <array>
#include <barrier>
#include <list>
#include <thread>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

void stall(FaultConnection& connection) {
    if (!connection.readRequest()) return;
    connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nsome of it");
    connection.stall();
}

}  // namespace

TEST(Cancelling, ReachesTheSocket) {
    FaultServer server(stall);
    const auto session = makeSession();
    const Loaded loaded;
    const auto task = session->dataTask(requestOf(server.url()), loaded.completion());
    task->resume();
    ASSERT_TRUE(server.waitForRequests(1));
    task->cancel();
    EXPECT_TRUE(server.waitForClosedByClient(1));
    EXPECT_EQ(loaded.code(), URLErrorCode::cancelled) << loaded.story();
    EXPECT_EQ(loaded.data(), std::nullopt);
    EXPECT_EQ(loaded.error()->localizedDescription(), "cancelled");
}

TEST(Cancelling, ATaskThatWasNotStartedIsNeverSent) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const Loaded loaded;
    const auto task = session->dataTask(requestOf(server.url()), loaded.completion());
    task->cancel();
    task->resume();
    task->cancel();
    EXPECT_EQ(loaded.code(), URLErrorCode::cancelled);
    load(*session, server.url("/after"));
    EXPECT_EQ(loaded.calls(), 1);
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(server.requests()[0].target, "/after");
}

TEST(Cancelling, AQueuedTaskIsNeverSent) {
    FaultServer* reached = nullptr;
    FaultServer server([&reached](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!reached->hold()) return;
            connection.send(answer(200, "ok"));
        }
    });
    reached = &server;
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = 1;
    const auto session = URLSession::make(configuration);
    const Loaded first = startLoad(*session, requestOf(server.url("/first")));
    const Loaded second;
    const auto task = session->dataTask(requestOf(server.url("/second")), second.completion());
    task->resume();
    ASSERT_TRUE(server.waitForRequests(1));
    task->cancel();
    EXPECT_EQ(second.code(), URLErrorCode::cancelled);
    server.releaseHeld();
    EXPECT_EQ(first.body(), "ok");
    EXPECT_EQ(load(*session, server.url("/third")).body(), "ok");
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST(Cancelling, AFinishedTaskHasNoEffect) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const Loaded loaded;
    const auto task = session->dataTask(requestOf(server.url()), loaded.completion());
    task->resume();
    EXPECT_EQ(loaded.body(), "ok");
    task->cancel();
    task->resume();
    EXPECT_EQ(load(*session, server.url()).body(), "ok");
    EXPECT_EQ(loaded.calls(), 1);
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(Cancelling, InItsOwnCompletionHasNoEffect) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const Loaded loaded;
    std::shared_ptr<URLSessionDataTask> task;
    task = session->dataTask(requestOf(server.url()), [&task, inner = loaded.completion()](
                                                          auto data, auto response, auto error) mutable {
        task->cancel();
        inner(std::move(data), std::move(response), std::move(error));
    });
    task->resume();
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
}

TEST(Cancelling, ManyTasksAtOnceLeavesTheSessionUsable) {
    FaultServer server(stall);
    const auto session = makeSession();
    std::vector<std::pair<Loaded, std::shared_ptr<URLSessionDataTask>>> tasks(500);
    for (auto& [loaded, task] : tasks) {
        task = session->dataTask(requestOf(server.url()), loaded.completion());
        task->resume();
    }
    ASSERT_TRUE(server.waitForRequests(6));
    for (auto& [loaded, task] : tasks) task->cancel();
    for (auto& [loaded, task] : tasks) EXPECT_EQ(loaded.code(), URLErrorCode::cancelled) << loaded.story();
    FaultServer other(always(answer(200, "ok")));
    EXPECT_EQ(load(*session, other.url()).body(), "ok");
}

TEST(Cancelling, IsNotLostIfItOvertakesTheStart) {
    FaultServer server(stall);
    const auto transport = detail::makeCurlTransport(URLSessionConfiguration::default_());
    const Loaded loaded;
    const auto transfer = std::make_shared<detail::Transfer>(requestOf(server.url()), loaded.completion());
    ASSERT_TRUE(transfer->start());
    transport->cancel(transfer);
    transport->start(transfer);
    EXPECT_EQ(loaded.code(), URLErrorCode::cancelled) << loaded.story();
}

TEST(Cancelling, IsNotLostIfOtherThreadsResumeAtTheSameTime) {
    constexpr int pairs = 4;
    constexpr std::size_t rounds = 5000;
    FaultServer server(stall);
    const auto session = makeSession();
    using Tasks = std::vector<std::pair<Loaded, std::shared_ptr<URLSessionDataTask>>>;
    std::array<Tasks, pairs> tasks;
    std::list<std::barrier<>> barriers;
    std::vector<std::thread> threads;
    for (Tasks& own : tasks) {
        own.resize(rounds);
        for (auto& [loaded, task] : own) {
            task = session->dataTask(requestOf(server.url()), loaded.completion());
        }
        std::barrier<>& together = barriers.emplace_back(2);
        for (const auto call : {&URLSessionDataTask::resume, &URLSessionDataTask::cancel}) {
            threads.emplace_back([&own, &together, call] {
                for (auto& [loaded, task] : own) {
                    together.arrive_and_wait();
                    ((*task).*call)();
                }
            });
        }
    }
    for (std::thread& thread : threads) thread.join();
    for (Tasks& own : tasks) {
        for (auto& [loaded, task] : own) ASSERT_EQ(loaded.code(), URLErrorCode::cancelled) << loaded.story();
    }
}
