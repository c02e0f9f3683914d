#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sanitized.h>

#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <thread>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

// Under the thread sanitizer, a forked child cannot start threads.
#if defined(__SANITIZE_THREAD__)
constexpr bool canFork = false;
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
constexpr bool canFork = false;
#else
constexpr bool canFork = true;
#endif
#else
constexpr bool canFork = true;
#endif

class Fork : public testing::Test {
protected:
    void SetUp() override {
        if (!canFork) GTEST_SKIP() << "not under this sanitizer";
        EXPECT_EQ(load(*session_, server_.url()).body(), "ok");
    }

    /// Whether `check` returns true in a child, within half a minute.
    static bool holdsInChild(const std::function<bool()>& check) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(30);
            _exit(check() ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    FaultServer server_{always(answer(200, "ok"))};
    std::shared_ptr<URLSession> session_ = URLSession::make(URLSessionConfiguration::default_());
};

}  // namespace

TEST_F(Fork, LoadsOfTheParentsSessionFailAtOnceInTheChild) {
    EXPECT_TRUE(holdsInChild([this] {
        for (int i = 0; i < 20; ++i) {
            const Loaded loaded = load(*session_, server_.url());
            if (loaded.code() != URLErrorCode::unknown) return false;
            if (loaded.story().find("before fork") == std::string::npos) return false;
        }
        return true;
    }));
    EXPECT_EQ(load(*session_, server_.url()).body(), "ok") << "the parent's session continues";
    EXPECT_EQ(server_.connectionCount(), 1U);
}

TEST_F(Fork, ASessionCreatedByTheChildWorks) {
    EXPECT_TRUE(holdsInChild([this] {
        session_ = URLSession::make(URLSessionConfiguration::default_());
        return load(*session_, server_.url()).body() == "ok";
    }));
}

TEST_F(Fork, AChildWithRunningLoadsExitsNormally) {
#ifdef VRK_IS_SANITIZED
    GTEST_SKIP() << "at the child's exit the sanitizer reports objects held by the parent's threads as leaks";
#endif
    FaultServer stalling([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    const pid_t child = fork();
    if (child == 0) {
        alarm(30);
        static const auto own = URLSession::make(URLSessionConfiguration::default_());
        startLoad(*own, requestOf(stalling.url()));
        std::exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST_F(Fork, InTheChildQueuesOfTheParentRunOnlyTheChildsBlocks) {
    for (const DispatchQueue& queue : {DispatchQueue("pool"), DispatchQueue::withOwnThread("own")}) {
        const Event started, goOn, ran, ended;
        queue.async([=] {
            started.signal();
            EXPECT_TRUE(goOn.wait());
        });
        ASSERT_TRUE(started.wait());
        queue.async([ran] { ran.signal(); });
        EXPECT_TRUE(holdsInChild([&] {
            queue.async([ended] { ended.signal(); });
            return ended.wait() && ran.count() == 0;
        })) << queue.label();
        goOn.signal();
        EXPECT_TRUE(ran.wait());
    }
}

TEST_F(Fork, QueuesOfTheChildRunEvenIfTheParentsPoolIsIdle) {
    const DispatchQueue queue("pool");
    const Event ran, ended;
    queue.async([ran] { ran.signal(); });
    ASSERT_TRUE(ran.wait());
    EXPECT_TRUE(holdsInChild([&] {
        queue.async([ended] { ended.signal(); });
        return ended.wait();
    }));
}

TEST_F(Fork, AChildCanReleaseTheParentsObjectsWhateverTheParentsThreadsDo) {
    auto task = session_->dataTask(requestOf(server_.url()), [](auto, auto, auto) {});
    task->resume();
    // Holds the lock shared with the I/O thread much of the time.
    std::atomic<bool> isOver = false;
    std::thread busy([cancelled = task.get(), &isOver] {
        while (!isOver) cancelled->cancel();
    });
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        EXPECT_TRUE(holdsInChild([&] {
            task->cancel();
            task.reset();
            session_.reset();
            return true;
        }));
    }
    isOver = true;
    busy.join();
}

TEST_F(Fork, AChildExitsWithoutWaitingForTheParentsThreads) {
#ifdef VRK_IS_SANITIZED
    GTEST_SKIP() << "at the child's exit the sanitizer reports objects held by the parent's threads as leaks";
#endif
    for (const bool hasASession : {false, true}) {
        // The wait would take two seconds every time. A busy machine is not that slow every time.
        std::chrono::steady_clock::duration shortest = std::chrono::hours(1);
        for (int i = 0; i < 10 && shortest > std::chrono::seconds(1); ++i) {
            const auto start = std::chrono::steady_clock::now();
            const pid_t child = fork();
            if (child == 0) {
                alarm(30);
                static std::shared_ptr<URLSession> own;
                if (hasASession) {
                    own = URLSession::make(URLSessionConfiguration::default_());
                    if (load(*own, server_.url()).body() != "ok") _exit(1);
                }
                std::exit(0);
            }
            int status = -1;
            waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
            shortest = std::min(shortest, std::chrono::steady_clock::now() - start);
        }
        EXPECT_LT(shortest, std::chrono::seconds(1)) << hasASession;
    }
}
