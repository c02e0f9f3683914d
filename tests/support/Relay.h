#pragma once

/// \file
/// `Relay`: a path between a client and a server that can fail.

#include "Sockets.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace VanticRestKit::test {

/// Forwards bytes between each client and a port of 127.0.0.1. After `freeze()` existing connections stay open but
/// carry no data, as after the restart of a NAT router. New connections work.
class Relay {
public:
    /// Data from the server is delayed by `distance`.
    explicit Relay(std::uint16_t target, std::chrono::milliseconds distance = {});
    ~Relay();
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    /// The number of connections so far.
    std::size_t connectionCount() const;
    void freeze();
    /// Waits for at most half a minute until `count` clients have closed their connections.
    [[nodiscard]] bool waitForClosedByClient(std::size_t count) const;

private:
    struct Path {
        Socket client;
        Socket server;
        bool isFrozen = false;
    };

    void accept();
    void carry(Path& path);
    bool carryOnce(Path& path, int from, int to);

    const std::uint16_t target_;
    const std::chrono::milliseconds distance_;
    Socket listener_;
    std::uint16_t port_ = 0;
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::size_t closedByClient_ = 0;
    bool isStopping_ = false;
    std::vector<std::unique_ptr<Path>> paths_;
    std::vector<std::thread> threads_;
    std::thread acceptor_;
};

}  // namespace VanticRestKit::test
