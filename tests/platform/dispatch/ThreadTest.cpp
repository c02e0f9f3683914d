#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <pthread.h>
#include <signal.h>
#include <string>

using namespace VanticRestKit;
using test::Event;

TEST(Thread, BlocksTheHostsSignals) {
    const Event done;
    sigset_t inside;
    ASSERT_TRUE(detail::startThread("test", [&inside, done] {
        pthread_sigmask(SIG_SETMASK, nullptr, &inside);
        done.signal();
    }));
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(sigismember(&inside, SIGINT), 1);
    EXPECT_EQ(sigismember(&inside, SIGTERM), 1);
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS}) {
        EXPECT_EQ(sigismember(&inside, signal), 0) << signal;
    }
    EXPECT_EQ(sigismember(&inside, SIGPROF), 0) << "a profiler samples every thread";
    sigset_t outside;
    pthread_sigmask(SIG_SETMASK, nullptr, &outside);
    EXPECT_EQ(sigismember(&outside, SIGINT), 0);
}

TEST(Thread, IsNamedByTheLastCharactersOfALongName) {
    const Event done;
    std::string name;
    ASSERT_TRUE(detail::startThread("dev.vantic.delegate-queue", [&name, done] {
        char text[16] = {};
        pthread_getname_np(pthread_self(), text, sizeof text);
        name = text;
        done.signal();
    }));
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(name, ".delegate-queue");
}

namespace {

bool isBlocked(int signal) {
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    return sigismember(&blocked, signal) == 1;
}

/// While this object exists, the calling thread blocks only `SIGUSR2`.
class BlocksOne {
public:
    BlocksOne() {
        sigset_t one;
        sigemptyset(&one);
        sigaddset(&one, SIGUSR2);
        pthread_sigmask(SIG_SETMASK, &one, &before_);
    }
    BlocksOne(const BlocksOne&) = delete;
    BlocksOne& operator=(const BlocksOne&) = delete;
    ~BlocksOne() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

}  // namespace

TEST(Thread, RestoresTheStartersMaskForHostCode) {
    const BlocksOne blocks;
    const Event done;
    bool before = false, inside = true, kept = false, after = false;
    ASSERT_TRUE(detail::startThread("test", [&, done] {
        before = isBlocked(SIGTERM);
        {
            const detail::HostSignals signals;
            inside = isBlocked(SIGTERM);
            kept = isBlocked(SIGUSR2);
        }
        after = isBlocked(SIGTERM);
        done.signal();
    }));
    ASSERT_TRUE(done.wait());
    EXPECT_TRUE(before);
    EXPECT_FALSE(inside);
    EXPECT_TRUE(kept);
    EXPECT_TRUE(after);
}

TEST(Thread, PassesTheMaskOnToThreadsThatItStarts) {
    const Event done;
    bool inside = true;
    ASSERT_TRUE(detail::startThread("outer", [&, done] {
        EXPECT_TRUE(detail::startThread("inner", [&inside, done] {
            const detail::HostSignals signals;
            inside = isBlocked(SIGTERM);
            done.signal();
        }));
    }));
    ASSERT_TRUE(done.wait());
    EXPECT_FALSE(inside);
}

TEST(Thread, DoesNotChangeTheMaskOfAHostThread) {
    const BlocksOne blocks;
    { const detail::HostSignals signals; }
    EXPECT_FALSE(isBlocked(SIGTERM));
    EXPECT_TRUE(isBlocked(SIGUSR2));
}

TEST(Thread, BlocksOfEveryQueueRunWithTheHostsMask) {
    for (const DispatchQueue& queue : {DispatchQueue("pool"), DispatchQueue::withOwnThread("own")}) {
        const Event done;
        bool inside = true;
        queue.async([&inside, done] {
            inside = isBlocked(SIGTERM);
            done.signal();
        });
        ASSERT_TRUE(done.wait());
        EXPECT_FALSE(inside) << queue.label();
    }
}
