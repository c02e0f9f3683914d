#include "Client.h"

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <future>

namespace VanticRestKit::test {

namespace {

TEST(SampleProcess, TheFirstLineIsTheBaseURLWithTheChosenPort) {
    const SampleService service;
    EXPECT_EQ(service.baseURL(), "http://127.0.0.1:" + std::to_string(service.port()));
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 200);
}

TEST(SampleProcess, ExitsWithZeroOnSIGTERM) {
    SampleService service;
    EXPECT_EQ(service.end(SIGTERM), 0);
}

TEST(SampleProcess, ExitsWithZeroAfterAnsweringTheStopRoute) {
    SampleService service;
    EXPECT_EQ(service.control("POST", "/_control/stop")["done"], true);
    EXPECT_EQ(service.waitForEnd(), 0);
}

TEST(SampleProcess, EndsEvenWithAnOpenConnectionAndADelayedResponse) {
    SampleService service;
    auto idle = clientOf(service);
    idle.set_keep_alive(true);
    ASSERT_TRUE(idle.Get("/v2/time"));
    service.addFault({{"path", "v2/time"}, {"fault", "stall"}});
    auto held =
        std::async(std::launch::async, [&] { return static_cast<bool>(clientOf(service).Get("/v2/time")); });
    while (service.control("GET", "/_control/state")["requests"] < 2) std::this_thread::yield();
    EXPECT_EQ(service.end(SIGTERM), 0);
    EXPECT_FALSE(held.get());
}

TEST(SampleProcess, EndsWithItsParentProcess) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t parent = fork();
    if (parent == 0) {
        // The service inherits the write end, which therefore stays open while it runs.
        const SampleService service;
        _exit(service.isRunning() ? 0 : 1);
    }
    close(ends[1]);
    int status = 0;
    waitpid(parent, &status, 0);
    EXPECT_EQ(status, 0);
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 0);
    close(ends[0]);
}

TEST(SampleProcess, ServesTLSWithACertificateOfItsOwnAuthority) {
    const SampleService service(SampleService::Transport::https);
    EXPECT_TRUE(service.baseURL().starts_with("https://127.0.0.1:"));
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 200);
    httplib::Client stranger(service.baseURL());
    EXPECT_EQ(stranger.Get("/v2/time").error(), httplib::Error::SSLServerVerification);
}

TEST(SampleProcess, ManyConnectionsAreServedEvenIfSomeAreDelayed) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "stall"}, {"count", 50}});
    std::vector<std::future<bool>> held;
    for (int i = 0; i < 50; ++i) {
        held.push_back(std::async(std::launch::async, [&] {
            auto client = clientOf(service);
            client.set_read_timeout(std::chrono::seconds(2));
            return static_cast<bool>(client.Get("/v2/time"));
        }));
    }
    while (service.control("GET", "/_control/state")["requests"] < 50) std::this_thread::yield();
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 200);
    for (auto& one : held) EXPECT_FALSE(one.get());
}

TEST(SampleProcess, WrongUsageExitsWithTwo) {
    EXPECT_EQ(runSampleService({"--port", "x"}), 2);
    EXPECT_EQ(runSampleService({"--port", "70000"}), 2);
    EXPECT_EQ(runSampleService({"--ca-out", "x"}), 2);
    EXPECT_EQ(runSampleService({"--nonsense"}), 2);
    EXPECT_EQ(runSampleService({"more"}), 2);
}

TEST(SampleProcess, APortInUseExitsWithOne) {
    const SampleService service;
    EXPECT_EQ(runSampleService({"--port", std::to_string(service.port())}), 1);
}

}  // namespace

}  // namespace VanticRestKit::test
