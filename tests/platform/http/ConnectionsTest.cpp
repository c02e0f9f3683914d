#include <VanticRestKit/platform/http/curl/detail/Connections.h>

#include <gtest/gtest.h>
#include <support/Sockets.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <cerrno>
#include <cstdint>
#include <memory>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;
using namespace VanticRestKit::test;

namespace {

/// A connected socket and its peer.
class OpenConnection : public testing::Test {
protected:
    OpenConnection() {
        auto [listener, port] = listenOnLoopback();
        remotePort_ = port;
        socket_ = connections_.open(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int connected = connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof(address));
        EXPECT_TRUE(connected == 0 || errno == EINPROGRESS);
        peer_ = Socket(accept(listener.descriptor(), nullptr, nullptr));
        socklen_t size = sizeof(address);
        EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
        localPort_ = ntohs(address.sin_port);
    }

    std::shared_ptr<Connection> found() {
        return connections_.find({"127.0.0.1", "127.0.0.1", remotePort_, localPort_});
    }

    Connections connections_;
    Socket peer_;
    int socket_ = -1;
    std::uint16_t remotePort_ = 0;
    std::uint16_t localPort_ = 0;
};

}  // namespace

TEST_F(OpenConnection, IsFoundByItsSocketAndByItsEndpoints) {
    ASSERT_NE(found(), nullptr);
    EXPECT_EQ(found(), connections_.find(socket_));
    EXPECT_EQ(connections_.find({"127.0.0.1", "127.0.0.1", localPort_, remotePort_}), nullptr);
    EXPECT_EQ(connections_.find({nullptr, "127.0.0.1", remotePort_, localPort_}), nullptr);
}

TEST_F(OpenConnection, IsNotInheritedByChildProcesses) { EXPECT_NE(fcntl(socket_, F_GETFD) & FD_CLOEXEC, 0); }

TEST_F(OpenConnection, NeverBlocksItsThread) { EXPECT_NE(fcntl(socket_, F_GETFL) & O_NONBLOCK, 0); }

TEST_F(OpenConnection, IsShutDownOnlyByItsOwnAddress) {
    pollfd end{.fd = peer_.descriptor(), .events = POLLIN, .revents = 0};
    connections_.shutDownFrom("127.0.0.2");
    EXPECT_EQ(poll(&end, 1, 0), 0);
    connections_.shutDownFrom("127.0.0.1");
    EXPECT_EQ(poll(&end, 1, 30000), 1);
}

TEST_F(OpenConnection, IsNotFoundAfterItIsClosed) {
    const std::shared_ptr<Connection> connection = found();
    ASSERT_NE(connection, nullptr);
    connections_.close(socket_);
    EXPECT_EQ(connection->socket, -1);
    EXPECT_EQ(found(), nullptr) << "another connection may have the same endpoints later";
    EXPECT_EQ(connections_.find(socket_), nullptr);
}

TEST_F(OpenConnection, IsNotFoundByMissingAddresses) {
    EXPECT_EQ(connections_.find({nullptr, "127.0.0.1", remotePort_, localPort_}), nullptr);
    EXPECT_EQ(connections_.find({"127.0.0.1", nullptr, remotePort_, localPort_}), nullptr);
    EXPECT_NE(found(), nullptr);
    connections_.close(socket_);
}

TEST_F(OpenConnection, IsFoundPastSocketsWithoutAddresses) {
    const int unconnected = connections_.open(AF_INET, SOCK_STREAM, 0);
    const int local = connections_.open(AF_UNIX, SOCK_STREAM, 0);
    const auto connection = found();
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(connection->socket, socket_);
    for (const int socket : {unconnected, local, socket_}) EXPECT_EQ(connections_.close(socket), 0);
}

TEST_F(OpenConnection, HasNoLastReceiptOnceItIsClosed) {
    const auto connection = found();
    ASSERT_NE(connection, nullptr);
    connections_.close(socket_);
    EXPECT_EQ(connection->socket, -1);
    EXPECT_FALSE(connections_.lastReceived(*connection, Clock::now()));
    connections_.shutDown(*connection);
}

TEST(Connections, CloseASocketThatTheyDidNotOpen) {
    Connections connections;
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(connections.close(socket), 0);
    EXPECT_EQ(fcntl(socket, F_GETFD), -1);
}
