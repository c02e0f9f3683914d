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

    /// Closes it in good order, or with a reset.
    void close();
    void reset();

private:
    int descriptor_ = -1;
};

/// 127.0.0.1, ::1, or every address of both kinds, which is for a network of a test's own.
enum class Loopback { v4, v6, everyAddress };

/// A socket with a free port of loopback, which refuses connections until it listens, and the port.
std::pair<Socket, std::uint16_t> bindOnLoopback(Loopback loopback = Loopback::v4);

/// A socket that listens on a free port of loopback, and the port.
std::pair<Socket, std::uint16_t> listenOnLoopback(Loopback loopback = Loopback::v4);

/// An address of loopback and a port that answer no attempt to connect: their queue is full and is not emptied.
class DeadAddress {
public:
    DeadAddress(const std::string& address, std::uint16_t port);

private:
    Socket listener_;
    std::vector<Socket> waiting_;
};

/// Whether this machine has a loopback of IPv6.
bool hasIPv6();

/// A socket connected to a port of 127.0.0.1; none if no server listens.
Socket connectToLoopback(std::uint16_t port);

/// A port of 127.0.0.1 without a listener.
std::uint16_t unusedPort();

/// Sends all of the bytes. Whether the other end took them.
bool sendAll(int descriptor, const char* bytes, std::size_t size);

}  // namespace VanticRestKit::test
