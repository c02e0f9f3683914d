#pragma once

/// \file
/// Sockets on loopback.

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// Owns a socket.
class Socket {
public:
    Socket() = default;
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Socket& operator=(Socket&& other) noexcept;
    ~Socket();

    int descriptor() const noexcept { return descriptor_; }
    explicit operator bool() const noexcept { return descriptor_ >= 0; }

    /// Closes it normally, or with a reset.
    void close();
    void reset();

private:
    int descriptor_ = -1;
};

/// 127.0.0.1, ::1, or all addresses of both kinds, which is for a private network only.
enum class Loopback { v4, v6, everyAddress };

/// A socket bound to a free port of loopback, and the port. It refuses connections until it listens.
std::pair<Socket, std::uint16_t> bindOnLoopback(Loopback loopback = Loopback::v4);

/// A socket listening on a free port of loopback, and the port.
std::pair<Socket, std::uint16_t> listenOnLoopback(Loopback loopback = Loopback::v4);

/// A loopback address and port that do not answer connection attempts, because their queue is full.
class DeadAddress {
public:
    DeadAddress(const std::string& address, std::uint16_t port);

private:
    Socket listener_;
    std::vector<Socket> waiting_;
};

/// Whether this machine has an IPv6 loopback address.
bool hasIPv6();

/// A socket connected to a port of 127.0.0.1, or none if no server listens.
Socket connectToLoopback(std::uint16_t port);

/// A port of 127.0.0.1 without a listener.
std::uint16_t unusedPort();

/// Sends all bytes. Returns whether that succeeded.
bool sendAll(int descriptor, const char* bytes, std::size_t size);

}  // namespace VanticRestKit::test
