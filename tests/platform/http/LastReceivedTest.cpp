// A separate program, since it replaces a function of the C library.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>

#include <gtest/gtest.h>
#include <support/Sockets.h>

#include <dlfcn.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <limits>

namespace {

/// How many bytes of `tcp_info` the system fills in.
socklen_t filledIn = std::numeric_limits<socklen_t>::max();

}  // namespace

extern "C" int getsockopt(int socket, int level, int option, void* value, socklen_t* size) noexcept {
    static auto* const real =
        reinterpret_cast<int (*)(int, int, int, void*, socklen_t*)>(dlsym(RTLD_NEXT, "getsockopt"));
    if (level == IPPROTO_TCP && option == TCP_INFO) *size = std::min(*size, filledIn);
    return real(socket, level, option, value, size);
}

namespace VanticRestKit::detail {

namespace {

using namespace std::chrono_literals;

constexpr socklen_t throughLastReceived =
    offsetof(tcp_info, tcpi_last_data_recv) + sizeof(tcp_info::tcpi_last_data_recv);

class LastReceived : public testing::Test {
protected:
    LastReceived() {
        filledIn = std::numeric_limits<socklen_t>::max();
        auto [listener, port] = test::listenOnLoopback();
        client_ = test::connectToLoopback(port);
        peer_ = test::Socket(accept(listener.descriptor(), nullptr, nullptr));
        connection_.socket = client_.descriptor();
    }

    void receiveOneByte() {
        ASSERT_EQ(send(peer_.descriptor(), "x", 1, 0), 1);
        pollfd readable{.fd = connection_.socket, .events = POLLIN, .revents = 0};
        ASSERT_EQ(poll(&readable, 1, 30000), 1);
    }

    const Connections connections_;
    test::Socket client_;
    test::Socket peer_;
    Connection connection_;
};

TEST_F(LastReceived, IsTheTimeWhenTheLastBytesArrived) {
    const TimePoint before = std::chrono::steady_clock::now();
    receiveOneByte();
    const TimePoint after = std::chrono::steady_clock::now();
    const auto last = connections_.lastReceived(connection_, after);
    if (!last) GTEST_SKIP() << "the system does not fill in this member";
    EXPECT_LE(*last, after);
    // The system counts in ticks of a few milliseconds.
    EXPECT_GE(*last, before - 100ms);
}

TEST_F(LastReceived, IsUnknownIfTheSystemFillsInTooLittle) {
    receiveOneByte();
    const TimePoint now = std::chrono::steady_clock::now();
    filledIn = throughLastReceived;
    if (!connections_.lastReceived(connection_, now)) GTEST_SKIP() << "not even this much here";
    filledIn = throughLastReceived - 1;
    EXPECT_FALSE(connections_.lastReceived(connection_, now));
}

TEST_F(LastReceived, IsUnknownForAClosedConnection) {
    receiveOneByte();
    connection_.socket = -1;
    EXPECT_FALSE(connections_.lastReceived(connection_, std::chrono::steady_clock::now()));
}

TEST_F(LastReceived, IsUnknownIfTheSystemReportsAnError) {
    connection_.socket = std::numeric_limits<int>::max();
    EXPECT_FALSE(connections_.lastReceived(connection_, std::chrono::steady_clock::now()));
}

}  // namespace

}  // namespace VanticRestKit::detail
