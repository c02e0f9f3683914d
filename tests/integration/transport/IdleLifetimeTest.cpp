// A separate program, since it replaces the C library's clock so that no test has to wait.

#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>
#include <atomic>
#include <chrono>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// The number of seconds that the clocks of the process are ahead of the system.
std::atomic<time_t> secondsAhead = 0;

}  // namespace

extern "C" __attribute__((visibility("default"))) int clock_gettime(clockid_t clock,
                                                                    timespec* time) noexcept {
    const auto answer = syscall(SYS_clock_gettime, clock, time);
    if (answer == 0) time->tv_sec += secondsAhead;
    return static_cast<int>(answer);
}

TEST(IdleLifetime, AConnectionIdleForTooLongIsNotReused) {
    FaultServer server(always(answer(200, "ok")));
    URLSessionConfiguration configuration;
    configuration.idleConnectionLifetime = std::chrono::seconds(10);
    const auto session = URLSession::make(configuration);
    load(*session, server.url());
    // libcurl counts in whole seconds.
    secondsAhead += 9;
    load(*session, server.url());
    EXPECT_EQ(server.connectionCount(), 1U);
    secondsAhead += 12;
    load(*session, server.url());
    EXPECT_EQ(server.connectionCount(), 2U);
}
