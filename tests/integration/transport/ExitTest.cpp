#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <cstdlib>
#include <optional>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

class Exit : public testing::Test {
protected:
    // Each process starts from the beginning, so that no thread is lost in a fork.
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

constexpr const char* serverVariable = "VRK_EXIT_TEST_SERVER";
constexpr const char* rootsVariable = "VRK_EXIT_TEST_ROOTS";

/// A TLS server in the process that observes how the child processes end. In a child, it would use objects that are
/// destroyed at exit. The children inherit its environment variables.
class ServerOutside {
public:
    ServerOutside() {
        setenv(serverVariable, server_.url().c_str(), 1);
        setenv(rootsVariable, roots_.path().c_str(), 1);
    }

private:
    CertificateAuthority root_{};
    TemporaryFile roots_{root_.pem()};
    Identity identity_ = root_.issue();
    FaultServer server_{always(answer(200, std::string(100 * 1000, 'x'))), &identity_};
};

/// Exits while a hundred TLS transfers are running and others start.
[[noreturn]] void leaveInTheMiddle() {
    const std::string server = std::getenv(serverVariable);
    URLSessionConfiguration configuration;
    configuration.caBundlePath = std::getenv(rootsVariable);
    static const auto session = URLSession::make(configuration);
    load(*session, server);
    for (int i = 0; i < 100; ++i) startLoad(*session, requestOf(server));
    std::exit(0);
}

}  // namespace

TEST_F(Exit, IsCleanDuringTransfers) {
    std::optional<ServerOutside> server;
    if (!std::getenv(serverVariable)) server.emplace();
    for (int i = 0; i < 5; ++i) EXPECT_EXIT(leaveInTheMiddle(), testing::ExitedWithCode(0), "");
}

TEST_F(Exit, IsCleanFromACompletion) {
    const auto leave = [] {
        FaultServer& server = *new FaultServer(always(answer(200, "x")));
        const auto session = URLSession::make(URLSessionConfiguration::default_());
        session
            ->dataTask(requestOf(server.url()),
                       [](auto data, auto response, auto) {
                           // Objects on the stack of a call that never returns may be optimised away.
                           static const auto& held = *new std::pair(std::move(data), std::move(response));
                           std::exit(held.first ? 0 : 1);
                       })
            ->resume();
        Loaded().wait();
        std::exit(1);
    };
    EXPECT_EXIT(leave(), testing::ExitedWithCode(0), "");
}

TEST_F(Exit, IsCleanRightAfterTheFirstLoadBegan) {
    const auto leave = [] {
        static const auto session = URLSession::make(URLSessionConfiguration::default_());
        session->dataTask(requestOf("http://127.0.0.1:1/"), {})->resume();
        std::exit(0);
    };
    EXPECT_EXIT(leave(), testing::ExitedWithCode(0), "");
}
