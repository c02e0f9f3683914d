#include "Sockets.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace VanticRestKit::test {

namespace {

sockaddr_in loopbackV4(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

sockaddr_in6 loopbackV6() {
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_addr = in6addr_loopback;
    return address;
}

}  // namespace

Socket& Socket::operator=(Socket&& other) noexcept {
    if (this != &other) {
        close();
        descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
}

Socket::~Socket() { close(); }

void Socket::close() {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

void Socket::reset() {
    if (descriptor_ < 0) return;
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof(atOnce));
    close();
}

std::pair<Socket, std::uint16_t> bindOnLoopback(Loopback loopback) {
    const bool isV6 = loopback != Loopback::v4;
    Socket listener(socket(isV6 ? AF_INET6 : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in6 v6 = loopbackV6();
    if (loopback == Loopback::everyAddress) {
        v6.sin6_addr = in6addr_any;
        const int off = 0;
        setsockopt(listener.descriptor(), IPPROTO_IPV6, IPV6_V6ONLY, &off, sizeof(off));
    }
    sockaddr_in v4 = loopbackV4(0);
    sockaddr* const address = isV6 ? reinterpret_cast<sockaddr*>(&v6) : reinterpret_cast<sockaddr*>(&v4);
    socklen_t size = isV6 ? sizeof(v6) : sizeof(v4);
    EXPECT_EQ(bind(listener.descriptor(), address, size), 0);
    EXPECT_EQ(getsockname(listener.descriptor(), address, &size), 0);
    return {std::move(listener), ntohs(isV6 ? v6.sin6_port : v4.sin_port)};
}

std::pair<Socket, std::uint16_t> listenOnLoopback(Loopback loopback) {
    auto bound = bindOnLoopback(loopback);
    EXPECT_EQ(listen(bound.first.descriptor(), 1024), 0);
    return bound;
}

DeadAddress::DeadAddress(const std::string& address, std::uint16_t port)
    : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in name = loopbackV4(port);
    EXPECT_EQ(inet_pton(AF_INET, address.c_str(), &name.sin_addr), 1);
    const auto* const generic = reinterpret_cast<const sockaddr*>(&name);
    EXPECT_EQ(bind(listener_.descriptor(), generic, sizeof(name)), 0);
    EXPECT_EQ(listen(listener_.descriptor(), 0), 0);
    // One connection is established and waits to be accepted. The system drops later ones.
    for (int i = 0; i < 4; ++i) {
        Socket& each = waiting_.emplace_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        static_cast<void>(connect(each.descriptor(), generic, sizeof(name)));
    }
}

bool hasIPv6() {
    const Socket probe(socket(AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in6 address = loopbackV6();
    return probe &&
           bind(probe.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

Socket connectToLoopback(std::uint16_t port) {
    Socket made(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopbackV4(port);
    if (connect(made.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
        return {};
    const int on = 1;
    setsockopt(made.descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
    return made;
}

std::uint16_t unusedPort() { return listenOnLoopback().second; }

bool sendAll(int descriptor, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t sent = send(descriptor, bytes, size, MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes += sent;
        size -= static_cast<std::size_t>(sent);
    }
    return true;
}

}  // namespace VanticRestKit::test
