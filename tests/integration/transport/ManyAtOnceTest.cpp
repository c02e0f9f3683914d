#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <dirent.h>
#include <sys/resource.h>
#include <atomic>
#include <fstream>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// How many threads of this process bear a name of the transport.
int threadsOfTheTransport() {
    int count = 0;
    DIR* const folder = opendir("/proc/self/task");
    while (const dirent* const entry = readdir(folder)) {
        std::string name;
        std::ifstream("/proc/self/task/" + std::string(entry->d_name) + "/comm") >> name;
        if (name.starts_with("vrk.http")) ++count;
    }
    closedir(folder);
    return count;
}

/// What this process has had of the processors so far, in seconds.
double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The processor time of `count` loads that are refused, each of another address of loopback.
double processorSecondsOfRefusedLoads(int count) {
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    const std::string end = ":" + std::to_string(unusedPort()) + "/";
    const double before = processorSeconds();
    const Event done;
    for (int i = 0; i < count; ++i) {
        const std::string host = "127.1." + std::to_string(i / 250) + "." + std::to_string(1 + i % 250);
        session->dataTask(requestOf("http://" + host + end), [done](auto, auto, auto) { done.signal(); })
            ->resume();
    }
    EXPECT_TRUE(done.wait(count));
    return processorSeconds() - before;
}

}  // namespace

TEST(ManyAtOnce, LoadsToDistinctOriginsCostInProportionToTheirNumber) {
    const double few = processorSecondsOfRefusedLoads(4000);
    const double many = processorSecondsOfRefusedLoads(16000);
    EXPECT_LT(many, 4 * few * 2.5) << few << " s for 4,000 loads, " << many << " s for 16,000";
}

TEST(ManyAtOnce, TenThousandRequestsAreInFlightOnTwoThreads) {
    constexpr int count = 10000;
    FaultServer* reached = nullptr;
    FaultServer server([&reached](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (!reached->hold()) return;
            connection.send(answer(200, request->target));
        }
    });
    reached = &server;
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    std::atomic<int> right = 0;
    Event done;
    for (int i = 0; i < count; ++i) {
        std::string path = "/" + std::to_string(i);
        URLRequest request = requestOf(server.url(path));
        session
            ->dataTask(std::move(request),
                       [&right, done, path = std::move(path)](auto data, auto, auto) {
                           if (data && data->view() == path) ++right;
                           done.signal();
                       })
            ->resume();
    }
    ASSERT_TRUE(server.waitForRequests(6));
    EXPECT_EQ(threadsOfTheTransport(), 2) << "the I/O thread and that of the delegate queue";
    EXPECT_EQ(done.count(), 0);
    server.releaseHeld();
    EXPECT_TRUE(done.wait(count));
    EXPECT_EQ(right, count);
    EXPECT_EQ(threadsOfTheTransport(), 2);
    EXPECT_EQ(server.connectionCount(), 6U);
}
