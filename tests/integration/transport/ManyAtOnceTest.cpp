#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <dirent.h>
#include <atomic>
#include <fstream>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// The number of threads of this process that belong to the transport.
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

/// Loads from `count` loopback addresses that refuse connections, all at once.
void loadRefusedAddresses(int count) {
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    const std::string end = ":" + std::to_string(unusedPort()) + "/";
    const Event done;
    for (int i = 0; i < count; ++i) {
        const std::string host = "127.1." + std::to_string(i / 250) + "." + std::to_string(1 + i % 250);
        session->dataTask(requestOf("http://" + host + end), [done](auto, auto, auto) { done.signal(); })
            ->resume();
    }
    EXPECT_TRUE(done.wait(count));
}

}  // namespace

TEST(ManyAtOnce, LoadsToManyDistinctOriginsAllEnd) { loadRefusedAddresses(16000); }

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
