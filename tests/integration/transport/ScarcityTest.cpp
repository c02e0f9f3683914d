#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/NoThreads.h>
#include <support/Sanitized.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// Leaves the process no free descriptor while it exists.
class NoDescriptors {
public:
    NoDescriptors() {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit few = before_;
        few.rlim_cur = 256;
        setrlimit(RLIMIT_NOFILE, &few);
        for (int taken = dup(0); taken >= 0; taken = dup(0)) taken_.push_back(taken);
    }
    NoDescriptors(const NoDescriptors&) = delete;
    NoDescriptors& operator=(const NoDescriptors&) = delete;
    ~NoDescriptors() {
        for (const int each : taken_) close(each);
        setrlimit(RLIMIT_NOFILE, &before_);
    }

private:
    rlimit before_{};
    std::vector<int> taken_;
};

}  // namespace

TEST(Scarcity, ASessionThatStartedWithoutFreeDescriptorsRecovers) {
#ifdef VRK_IS_SANITIZED
    GTEST_SKIP() << "the sanitizer needs descriptors, which this test uses up";
#endif
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    {
        const std::string refused = "http://127.0.0.1:" + std::to_string(unusedPort()) + "/";
        const NoDescriptors none;
        EXPECT_FALSE(load(*session, refused).succeeded());
    }
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/stall") {
                connection.stall();
                return;
            }
            connection.send(answer(200, "ok"));
        }
    });
    // While this load waits for its response, the I/O thread is blocked in a wait that the next load must end.
    const Loaded stalled;
    const auto task = session->dataTask(requestOf(server.url("/stall")), stalled.completion());
    task->resume();
    ASSERT_TRUE(server.waitForRequests(1));
    const auto start = std::chrono::steady_clock::now();
    // Several loads, since a timer of the transport may help one of them.
    for (int i = 0; i < 3; ++i) EXPECT_EQ(load(*session, server.url()).body(), "ok");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    task->cancel();
    EXPECT_EQ(stalled.code(), URLErrorCode::cancelled);
}

TEST(Scarcity, LoadsFailIfNoThreadCanBeStarted) {
    FaultServer server(always(answer(200, "ok")));
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    std::vector<Loaded> loads;
    {
        const NoThreads none;
        for (int i = 0; i < 5; ++i) loads.push_back(startLoad(*session, requestOf(server.url())));
        for (const Loaded& each : loads) EXPECT_EQ(each.code(), URLErrorCode::unknown) << each.story();
    }
    EXPECT_EQ(load(*session, server.url()).body(), "ok") << "the session has recovered";
}

TEST(Scarcity, BlocksRunOnThePostingThreadIfNoThreadCanBeStarted) {
    const NoThreads none;
    for (const DispatchQueue& queue : {DispatchQueue("pool"), DispatchQueue::withOwnThread("own")}) {
        const Event ran;
        queue.async([ran, queue] {
            queue.async([ran] { ran.signal(); });
            EXPECT_EQ(ran.count(), 0) << "one block at a time";
            EXPECT_TRUE(queue.isCurrent());
        });
        EXPECT_EQ(ran.count(), 1) << queue.label();
    }
}

// In a separate process, in which the timer has no thread yet.
TEST(ScarcityDeathTest, ADelayedBlockRunsAtOnceIfTheTimerCannotStartItsThread) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto post = [] {
        const Event ran;
        const NoThreads none;
        DispatchQueue("pool").asyncAfter(std::chrono::hours(1), [ran] { ran.signal(); });
        std::_Exit(ran.count());
    };
    EXPECT_EXIT(post(), testing::ExitedWithCode(1), "");
}
