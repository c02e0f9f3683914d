#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sanitized.h>

#include <chrono>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::size_t megabyte = 1024 * 1024;

/// The decoded size of a body that takes long to decode.
#ifdef VRK_IS_SANITIZED
constexpr std::size_t large = 32 * megabyte;
#else
constexpr std::size_t large = 192 * megabyte;
#endif

std::shared_ptr<URLSession> makeSession() {
    URLSessionConfiguration configuration;
    configuration.limits.maxDecodingRatio = URLSessionLimits::unlimited;
    return URLSession::make(configuration);
}

/// A response whose small body decodes to `large` bytes.
const std::string& bomb() {
    static const std::string whole =
        answer(200, brotlied(std::string(large, 'x')), "Content-Encoding: br\r\n");
    return whole;
}

/// Answers /bomb with `bomb()`, and everything else with a short response.
FaultServer::Script bombing() {
    return [](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(request->target == "/bomb" ? bomb() : answer(200, "small"));
        }
    };
}

}  // namespace

TEST(Fairness, OtherLoadsContinueWhileABodyExpands) {
    FaultServer server(bombing());
    const auto session = makeSession();
    const Loaded slow = startLoad(*session, requestOf(server.url("/bomb")));
    int others = 0;
    while (slow.calls() == 0) {
        ASSERT_EQ(load(*session, server.url()).body(), "small");
        ++others;
    }
    EXPECT_EQ(slow.data()->size(), large) << slow.story();
    EXPECT_GT(others, 5) << "no other load completed before the body was decoded";
}

TEST(Fairness, ATimeoutOccursWhileABodyExpands) {
    FaultServer server(bombing());
    FaultServer stalling([](FaultConnection& connection) {
        if (connection.readRequest()) connection.stall();
    });
    const auto session = makeSession();
    const Loaded slow = startLoad(*session, requestOf(server.url("/bomb")));
    URLRequest request = requestOf(stalling.url());
    request.setTimeoutInterval(milliseconds(20));
    const Loaded stalled = load(*session, request);
    EXPECT_EQ(stalled.code(), URLErrorCode::timedOut) << stalled.story();
    EXPECT_EQ(slow.calls(), 0) << "the timeout waited for the body";
    EXPECT_EQ(slow.data()->size(), large) << slow.story();
}

TEST(Fairness, ALoadCanBeCancelledWhileItsBodyExpands) {
    FaultServer server(bombing());
    const auto session = makeSession();
    Loaded slow;
    const auto task = session->dataTask(requestOf(server.url("/bomb")), slow.completion());
    task->resume();
    ASSERT_EQ(load(*session, server.url()).body(), "small");
    ASSERT_TRUE(server.waitForRequests(2));
    task->cancel();
    EXPECT_EQ(slow.code(), URLErrorCode::cancelled) << slow.story();
    EXPECT_EQ(load(*session, server.url()).body(), "small");
}

TEST(Fairness, ManyBodiesExpandingAtOnceAllArrive) {
    const std::string text = std::string(3 * megabyte, 'x') + sampleText(100'000);
    const std::string whole = answer(200, gzipped(text), "Content-Encoding: gzip\r\n");
    FaultServer server([&](FaultConnection& connection) {
        while (connection.readRequest()) {
            // In pieces, so that some arrive while others are decoded.
            connection.send(whole.substr(0, 500));
            connection.send(whole.substr(500, 3000));
            connection.send(whole.substr(3500));
        }
    });
    const auto session = makeSession();
    std::vector<Loaded> loads;
    for (int i = 0; i < 24; ++i) loads.push_back(startLoad(*session, requestOf(server.url())));
    for (const Loaded& loaded : loads) EXPECT_TRUE(loaded.body() == text) << loaded.story();
    EXPECT_LE(server.connectionCount(), 6U);
}

TEST(Fairness, ABodyTruncatedWhileItExpandsFails) {
    const std::string coded = gzipped(std::string(3 * megabyte, 'x') + sampleText(100'000));
    FaultServer server(always(answer(200, coded.substr(0, coded.size() - 8), "Content-Encoding: gzip\r\n")));
    const Loaded loaded = load(*makeSession(), server.url());
    EXPECT_EQ(loaded.code(), URLErrorCode::cannotDecodeContentData) << loaded.story();
}

TEST(Fairness, ABodyMalformedAfterItsFirstSlicesFails) {
    std::string coded = gzipped(std::string(3 * megabyte, 'x') + sampleText(1000 * 1000));
    coded.replace(coded.size() / 2, 100, std::string(100, '\xFF'));
    FaultServer server(always(answer(200, coded, "Content-Encoding: gzip\r\n")));
    const auto session = makeSession();
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.code(), URLErrorCode::cannotDecodeContentData) << loaded.story();
}
