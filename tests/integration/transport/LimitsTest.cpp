#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sockets.h>

#include <sys/resource.h>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

// The code for data that exceeds a limit of the session.
constexpr std::int64_t tooLarge = -1103;

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

/// The outcome of a GET that is answered with `beginning` and then endlessly with `piece`.
Loaded loadOfEndless(const std::string& beginning, const std::string& piece) {
    FaultServer server([&](FaultConnection& connection) {
        if (!connection.readRequest() || !connection.send(beginning)) return;
        while (connection.send(piece)) {
        }
    });
    return load(*makeSession(), server.url());
}

std::string reason(const Loaded& loaded) {
    if (!loaded.error()) return {};
    const auto info = loaded.error()->userInfo();
    const auto found = info.find("NSDebugDescription");
    return found == info.end() ? std::string() : std::string(*found->second.text());
}

/// Opens descriptors until the process reaches its limit. Closes them in the destructor.
class NoDescriptorsLeft {
public:
    /// Leaves `spare` descriptors free.
    explicit NoDescriptorsLeft(std::size_t spare) {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit few = before_;
        few.rlim_cur = 256;
        setrlimit(RLIMIT_NOFILE, &few);
        while (true) {
            Socket socket(::dup(0));
            if (!socket) break;
            held_.push_back(std::move(socket));
        }
        held_.resize(held_.size() - spare);
    }
    ~NoDescriptorsLeft() { setrlimit(RLIMIT_NOFILE, &before_); }
    NoDescriptorsLeft(const NoDescriptorsLeft&) = delete;
    NoDescriptorsLeft& operator=(const NoDescriptorsLeft&) = delete;

private:
    rlimit before_{};
    std::vector<Socket> held_;
};

}  // namespace

TEST(Limits, AHeadWithTooManyLinesFails) {
    std::string head = "HTTP/1.1 200 OK\r\n";
    for (int i = 0; i < 20'000; ++i) head += "h" + std::to_string(i) + ":\r\n";
    FaultServer server(always(head + "Content-Length: 0\r\n\r\n"));
    const Loaded loaded = load(*makeSession(), server.url());
    ASSERT_TRUE(loaded.error().has_value());
    EXPECT_EQ(loaded.error()->code(), tooLarge) << loaded.story();
    EXPECT_EQ(reason(loaded), "The answer has more than 1000 header lines (maxHeadLines).");
}

TEST(Limits, ATooLongHeaderLineFails) {
    // The second exceeds libcurl's own limit.
    for (const std::size_t length : {std::size_t{80'000}, std::size_t{300'000}}) {
        FaultServer server(always(answer(200, "", "X: " + std::string(length, 'x') + "\r\n")));
        const Loaded loaded = load(*makeSession(), server.url());
        ASSERT_TRUE(loaded.error().has_value()) << length;
        EXPECT_EQ(loaded.error()->code(), tooLarge) << length << ": " << loaded.story();
        EXPECT_EQ(reason(loaded), "A header line of the answer is longer than 64 KB (maxHeaderLineBytes).")
            << length;
    }
}

TEST(Limits, ATooLargeHeadFails) {
    const Loaded loaded = loadOfEndless("HTTP/1.1 200 OK\r\n", "X: " + std::string(8000, 'x') + "\r\n");
    ASSERT_TRUE(loaded.error().has_value());
    EXPECT_EQ(loaded.error()->code(), tooLarge) << loaded.story();
    EXPECT_EQ(reason(loaded), "The headers of the answer are larger than 256 KB (maxHeadBytes).");
}

TEST(Limits, EndlessInterimResponsesFail) {
    const Loaded loaded = loadOfEndless("", "HTTP/1.1 103 Early Hints\r\nX: 1\r\n\r\n");
    ASSERT_TRUE(loaded.error().has_value());
    EXPECT_EQ(loaded.error()->code(), tooLarge) << loaded.story();
    EXPECT_EQ(reason(loaded), "The answer has more than 32 interim answers (maxInterimAnswers).");
}

TEST(Limits, EndlessTrailersFail) {
    const Loaded loaded =
        loadOfEndless("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n0\r\n",
                      "X: " + std::string(1000, 'x') + "\r\n");
    ASSERT_TRUE(loaded.error().has_value());
    EXPECT_EQ(loaded.error()->code(), tooLarge) << loaded.story();
    EXPECT_EQ(reason(loaded), "The headers of the answer are larger than 256 KB (maxHeadBytes).");
}

TEST(Limits, AConnectionWithoutAFreeDescriptorFailsWithTheCause) {
    FaultServer server(always(answer(200, "")));
    FaultServer other(always(answer(200, "")));
    const auto session = makeSession();
    ASSERT_TRUE(load(*session, server.url()).succeeded());
    const NoDescriptorsLeft none(0);
    const Loaded loaded = load(*session, other.url());
    ASSERT_TRUE(loaded.error().has_value());
    EXPECT_EQ(loaded.code(), URLErrorCode::unknown) << loaded.story();
    EXPECT_EQ(loaded.error()->localizedDescription(),
              "The process has no free file descriptor for a connection.");
}

TEST(Limits, ALookupWithoutAFreeDescriptorFailsWithTheCause) {
    FaultServer server(always(answer(200, "")));
    const auto session = makeSession();
    ASSERT_TRUE(load(*session, server.url()).succeeded());
    const NoDescriptorsLeft none(0);
    const Loaded loaded = load(*session, "http://localhost:" + std::to_string(server.port()) + "/");
    ASSERT_TRUE(loaded.error().has_value());
    EXPECT_EQ(loaded.code(), URLErrorCode::unknown) << loaded.story();
}
