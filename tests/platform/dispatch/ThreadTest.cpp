#include <VanticRestKit/platform/dispatch/detail/Thread.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <pthread.h>
#include <signal.h>
#include <string>

using namespace VanticRestKit;
using test::Event;

TEST(Thread, LeavesTheHostsSignalsToTheHostsThreads) {
    const Event done;
    sigset_t inside;
    ASSERT_TRUE(detail::startThread("test", [&inside, done] {
        pthread_sigmask(SIG_SETMASK, nullptr, &inside);
        done.signal();
    }));
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(sigismember(&inside, SIGINT), 1);
    EXPECT_EQ(sigismember(&inside, SIGTERM), 1);
    EXPECT_EQ(sigismember(&inside, SIGSEGV), 0);
    sigset_t outside;
    pthread_sigmask(SIG_SETMASK, nullptr, &outside);
    EXPECT_EQ(sigismember(&outside, SIGINT), 0);
}

TEST(Thread, BearsTheEndOfItsName) {
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
