#pragma once

/// \file
/// `Relay`: a path between a client and a server that can die.

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

/// Hands bytes on between each client and a port of 127.0.0.1. After `freeze()` the connections that are
/// there stay open and carry nothing any more, as behind a router that lost its memory; new ones work.
class Relay {
public:
    /// What the server sends takes `distance` longer to arrive.
    explicit Relay(std::uint16_t target, std::chrono::milliseconds distance = {});
    ~Relay();
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    /// How many connections were made.
    std::size_t connectionCount() const;
    void freeze();
    /// Waits for up to half a minute until so many clients have closed their connection.
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
