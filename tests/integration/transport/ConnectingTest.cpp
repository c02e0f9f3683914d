#include <VanticRestKit/platform/http/curl/detail/CurlTransport.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>
#include <VanticRestKit/platform/http/detail/Transport.h>

#include <gtest/gtest.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <memory>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// A session that resolves the host "several.test" to the comma-separated `addresses`.
class SessionOfAddresses {
public:
    SessionOfAddresses(const std::string& addresses, std::uint16_t port)
        : port_(port),
          transport_(detail::makeCurlTransport(
              URLSessionConfiguration::default_(),
              {.addresses = {"several.test:" + std::to_string(port) + ":" + addresses}})) {}

    Loaded load(const std::string& method = "GET",
                std::chrono::duration<double> timeout = std::chrono::seconds(30)) {
        URLRequest request = requestOf("http://several.test:" + std::to_string(port_) + "/", method);
        request.setTimeoutInterval(timeout);
        const Loaded loaded;
        const auto transfer = std::make_shared<detail::Transfer>(std::move(request), loaded.completion());
        const auto start = std::chrono::steady_clock::now();
        transfer->start();
        transport_->start(transfer);
        loaded.wait();
        seconds_ = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return loaded;
    }

    /// The duration of the last load.
    double seconds() const { return seconds_; }

private:
    std::uint16_t port_;
    std::shared_ptr<detail::Transport> transport_;
    double seconds_ = 0;
};

}  // namespace

TEST(Connecting, TriesTheNextAddressIfTheFirstDoesNotAnswer) {
    FaultServer server(always(answer(200, "ok")));
    const DeadAddress dead("127.0.0.2", server.port());
    SessionOfAddresses session("127.0.0.2,127.0.0.1", server.port());
    const Loaded loaded = session.load();
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
    EXPECT_LT(session.seconds(), 10);
}

TEST(Connecting, RefusingAddressesBeforeALiveOneCostNoTime) {
    FaultServer server(always(answer(200, "ok")));
    SessionOfAddresses session("127.0.0.2,127.0.0.3,127.0.0.4,127.0.0.1", server.port());
    const Loaded loaded = session.load();
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
    EXPECT_LT(session.seconds(), 5);
}

TEST(Connecting, TriesTheNextAddressForOtherMethodsThanGet) {
    FaultServer server(always(answer(200, "ok")));
    const DeadAddress dead("127.0.0.2", server.port());
    SessionOfAddresses session("127.0.0.2,127.0.0.3,127.0.0.1", server.port());
    const Loaded loaded = session.load("DELETE");
    EXPECT_EQ(loaded.body(), "ok") << loaded.story();
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(Connecting, ASingleAddressHasTheWholeTimeOfTheRequest) {
    const std::uint16_t port = unusedPort();
    const DeadAddress dead("127.0.0.1", port);
    SessionOfAddresses session("127.0.0.1", port);
    const Loaded loaded = session.load("GET", std::chrono::milliseconds(600));
    EXPECT_EQ(loaded.code(), URLErrorCode::timedOut) << loaded.story();
    EXPECT_GE(session.seconds(), 0.59);
    EXPECT_LT(session.seconds(), 10);
}

TEST(Connecting, EndsAtOnceIfEveryAddressRefuses) {
    const std::uint16_t port = unusedPort();
    SessionOfAddresses session("127.0.0.2,127.0.0.3,127.0.0.1", port);
    const Loaded loaded = session.load();
    EXPECT_EQ(loaded.code(), URLErrorCode::cannotConnectToHost) << loaded.story();
    EXPECT_LT(session.seconds(), 5);
}
