#include <VanticRestKit/platform/http/curl/detail/SuspectConnections.h>

#include <gtest/gtest.h>
#include <support/Sockets.h>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <cerrno>
#include <chrono>
#include <memory>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;
using namespace VanticRestKit::test;
using std::chrono::seconds;

namespace {

/// An open connection with two requests, the first of which times out.
class Suspects : public testing::Test {
protected:
    Suspects() {
        auto [listener, port] = listenOnLoopback();
        const int socket = connections_.open(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        // The socket is non-blocking, so the connection may be established only when it is accepted.
        const int result = connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address));
        EXPECT_TRUE(result == 0 || errno == EINPROGRESS);
        peer_ = Socket(accept(listener.descriptor(), nullptr, nullptr));
        connection_ = connections_.find(socket);
        connection_->streams = 2;
        connection_->lastMoved = now_ - seconds(60);
        exchange_.attempt =
            std::make_unique<Attempt>(exchange_, AttemptSurroundings{.now = now_,
                                                                     .connections = connections_,
                                                                     .pendingConnects = pendingConnects_,
                                                                     .ownAddresses = ownAddresses_,
                                                                     .redirectPolicy = redirectPolicy_,
                                                                     .admission = admission_,
                                                                     .deadlines = deadlines_,
                                                                     .cookies = cookies_,
                                                                     .loadDeadlines = loadDeadlines_,
                                                                     .pacer = pacer_});
        exchange_.attempt->connection = connection_;
        exchange_.setInterval(seconds(30));
        suspects_.judge(exchange_, now_);
    }
    ~Suspects() override {
        if (connection_->socket >= 0) connections_.close(connection_->socket);
    }

    /// Whether the peer has seen the shutdown.
    bool isShutDown() const {
        pollfd end{.fd = peer_.descriptor(), .events = POLLIN, .revents = 0};
        return poll(&end, 1, 0) == 1;
    }

    TimePoint now_ = Clock::now();
    Connections connections_;
    PendingConnects pendingConnects_;
    OwnAddresses ownAddresses_;
    URLSessionRedirectPolicy redirectPolicy_;
    Admission admission_{6};
    IdleDeadlines deadlines_;
    SessionCookies cookies_{URLSessionConfiguration::default_()};
    LoadDeadlines loadDeadlines_{URLSessionConfiguration::default_()};
    BodyPacer pacer_;
    Socket peer_;
    std::shared_ptr<Connection> connection_;
    Exchange exchange_{
        std::make_shared<Transfer>(URLRequest(*URL::make("http://127.0.0.1/")), URLSession::Completion())};
    SuspectConnections suspects_{connections_, admission_, [](const auto&, const auto&) {}};
};

}  // namespace

TEST_F(Suspects, StayOpenWhileTheyHaveARequest) {
    suspects_.review();
    EXPECT_TRUE(connection_->isSuspect);
    EXPECT_FALSE(isShutDown());
}

TEST_F(Suspects, AreShutDownWhenTheLastRequestEnds) {
    connection_->streams = 0;
    suspects_.left(*connection_);
    EXPECT_TRUE(isShutDown());
}

TEST_F(Suspects, AreShutDownWhenTheLastRequestMovesToAnotherConnection) {
    connection_->streams = 0;
    suspects_.review();
    EXPECT_TRUE(isShutDown());
}

TEST_F(Suspects, AreForgottenWhenClosed) {
    exchange_.attempt->connection.reset();
    const auto count = connection_.use_count();
    connections_.close(connection_->socket);
    suspects_.review();
    EXPECT_EQ(connection_.use_count(), count - 2) << "neither the open connections nor the suspects hold it";
}

TEST_F(Suspects, AreClearedByActivity) {
    connection_->lastMoved = now_ + seconds(1);
    suspects_.review();
    EXPECT_FALSE(connection_->isSuspect);
    EXPECT_FALSE(isShutDown());
}
