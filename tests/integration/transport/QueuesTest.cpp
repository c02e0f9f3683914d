#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <atomic>
#include <functional>
#include <set>
#include <thread>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

/// Reports its destruction and the thread of it.
struct Witness {
    Event* destroyed;
    std::thread::id* where;
    ~Witness() {
        *where = std::this_thread::get_id();
        destroyed->signal();
    }
};

}  // namespace

TEST(Queues, CompletionsRunOneAtATimeOnOneOtherThread) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    std::atomic<int> inside = 0;
    std::atomic<bool> overlapped = false;
    std::mutex mutex;
    std::set<std::thread::id> threads;
    Event done;
    for (int i = 0; i < 100; ++i) {
        session
            ->dataTask(requestOf(server.url()),
                       [&](auto, auto, auto) {
                           if (++inside != 1) overlapped = true;
                           {
                               const std::lock_guard lock(mutex);
                               threads.insert(std::this_thread::get_id());
                           }
                           --inside;
                           done.signal();
                       })
            ->resume();
    }
    ASSERT_TRUE(done.wait(100));
    EXPECT_FALSE(overlapped);
    EXPECT_EQ(threads.size(), 1U);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST(Queues, ACompletionIsDestroyedOnItsQueue) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    Event destroyed;
    std::thread::id ran;
    std::thread::id destroyedOn;
    auto task = session->dataTask(requestOf(server.url()),
                                  [&ran, witness = std::make_unique<Witness>(&destroyed, &destroyedOn)](
                                      auto, auto, auto) { ran = std::this_thread::get_id(); });
    task->resume();
    ASSERT_TRUE(destroyed.wait()) << "the task is still held, but its completion must not be";
    EXPECT_EQ(ran, destroyedOn);
    EXPECT_NE(ran, std::this_thread::get_id());
}

TEST(Queues, ATaskContinuesWithoutItsHandleAndItsSession) {
    FaultServer* reached = nullptr;
    FaultServer server([&reached](FaultConnection& connection) {
        if (!connection.readRequest() || !reached->hold()) return;
        connection.send(answer(200, "ok"));
    });
    reached = &server;
    auto session = makeSession();
    const Loaded loaded = startLoad(*session, requestOf(server.url()));
    ASSERT_TRUE(server.waitForRequests(1));
    session.reset();
    server.releaseHeld();
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
}

TEST(Queues, ASessionWithoutTasksClosesItsConnections) {
    FaultServer server(always(answer(200, "ok")));
    auto session = makeSession();
    load(*session, server.url());
    session.reset();
    EXPECT_TRUE(server.waitForClosedByClient(1));
}

TEST(Queues, ASessionCanBeDestroyedInItsCompletion) {
    FaultServer server(always(answer(200, "ok")));
    auto session = makeSession();
    const Loaded loaded;
    auto& raw = *session;
    raw.dataTask(requestOf(server.url()),
                 [held = std::move(session), inner = loaded.completion()](auto data, auto response,
                                                                          auto error) mutable {
                     held.reset();
                     inner(std::move(data), std::move(response), std::move(error));
                 })
        ->resume();
    EXPECT_EQ(loaded.body(), "ok");
    EXPECT_TRUE(server.waitForClosedByClient(1));
}

TEST(Queues, ACompletionCanStartTheNextLoad) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    Event done;
    std::function<void(int)> next = [&](int left) {
        session
            ->dataTask(requestOf(server.url()),
                       [&, left](auto data, auto, auto) {
                           EXPECT_TRUE(data.has_value());
                           done.signal();
                           if (left > 1) next(left - 1);
                       })
            ->resume();
    };
    next(50);
    EXPECT_TRUE(done.wait(50));
    EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(Queues, ATaskThatIsNeverStartedIsReleasedSilently) {
    Event destroyed;
    std::thread::id where;
    {
        const auto session = makeSession();
        auto task = session->dataTask(requestOf("http://127.0.0.1:1/"),
                                      [witness = std::make_unique<Witness>(&destroyed, &where)](
                                          auto, auto, auto) { ADD_FAILURE() << "called"; });
    }
    EXPECT_TRUE(destroyed.wait());
}

TEST(Queues, SessionsCanBeCreatedAndDestroyedOnManyThreads) {
    FaultServer server(always(answer(200, "ok")));
    std::vector<std::thread> threads;
    std::atomic<int> good = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 10; ++round) {
                const auto session = makeSession();
                const auto task = session->dataTask(requestOf(server.url()), {});
                task->resume();
                task->cancel();
                if (load(*session, server.url()).body() == "ok") ++good;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(good, 40);
}

TEST(Queues, OneSessionServesManyThreads) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    std::vector<std::thread> threads;
    std::atomic<int> good = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                if (load(*session, server.url()).body() == "ok") ++good;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(good, 200);
    EXPECT_LE(server.connectionCount(), 6U);
}

TEST(Queues, AProcessStartedInACompletionCanBeEndedWithASignal) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = makeSession();
    const Event done;
    int status = 0;
    session
        ->dataTask(requestOf(server.url()),
                   [&status, done](auto, auto, auto) {
                       char name[] = "sleep", time[] = "5";
                       char* const arguments[] = {name, time, nullptr};
                       pid_t child = -1;
                       if (posix_spawnp(&child, name, nullptr, nullptr, arguments, environ) == 0) {
                           kill(child, SIGTERM);
                           waitpid(child, &status, 0);
                       }
                       done.signal();
                   })
        ->resume();
    ASSERT_TRUE(done.wait());
    EXPECT_TRUE(WIFSIGNALED(status)) << "it was not ended by the signal";
}
