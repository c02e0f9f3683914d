#include "Relay.h"

#include <poll.h>
#include <sys/socket.h>
#include <array>
#include <tuple>

namespace VanticRestKit::test {

Relay::Relay(std::uint16_t target, std::chrono::milliseconds distance)
    : target_(target), distance_(distance) {
    std::tie(listener_, port_) = listenOnLoopback();
    acceptor_ = std::thread([this] { accept(); });
}

Relay::~Relay() {
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
        for (const auto& path : paths_) {
            shutdown(path->client.descriptor(), SHUT_RDWR);
            shutdown(path->server.descriptor(), SHUT_RDWR);
        }
    }
    shutdown(listener_.descriptor(), SHUT_RDWR);
    acceptor_.join();
    for (std::thread& thread : threads_) thread.join();
}

void Relay::accept() {
    while (true) {
        Socket client(::accept4(listener_.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!client) return;
        Socket server = connectToLoopback(target_);
        const std::lock_guard lock(mutex_);
        if (isStopping_) return;
        // Sockets stay open until the relay is destroyed, so that no shutdown affects a reused descriptor.
        paths_.push_back(std::make_unique<Path>(Path{std::move(client), std::move(server)}));
        threads_.emplace_back([this, &path = *paths_.back()] { carry(path); });
    }
}

void Relay::carry(Path& path) {
    const int client = path.client.descriptor();
    const int server = path.server.descriptor();
    std::array<pollfd, 2> ends{pollfd{client, POLLIN, 0}, pollfd{server, POLLIN, 0}};
    while (poll(ends.data(), ends.size(), -1) > 0) {
        if (ends[0].revents != 0 && !carryOnce(path, client, server)) break;
        if (ends[1].revents != 0 && !carryOnce(path, server, client)) break;
    }
    shutdown(client, SHUT_RDWR);
    shutdown(server, SHUT_RDWR);
}

bool Relay::carryOnce(Path& path, int from, int to) {
    std::array<char, 16 * 1024> bytes;
    const ssize_t count = recv(from, bytes.data(), bytes.size(), 0);
    bool isFrozen = false;
    {
        const std::lock_guard lock(mutex_);
        if (count <= 0 && !isStopping_ && from == path.client.descriptor()) {
            ++closedByClient_;
            changed_.notify_all();
        }
        isFrozen = path.isFrozen;
    }
    if (count <= 0) return false;
    if (from == path.server.descriptor()) std::this_thread::sleep_for(distance_);
    return isFrozen || sendAll(to, bytes.data(), static_cast<std::size_t>(count));
}

std::size_t Relay::connectionCount() const {
    const std::lock_guard lock(mutex_);
    return paths_.size();
}

void Relay::freeze() {
    const std::lock_guard lock(mutex_);
    for (const auto& path : paths_) path->isFrozen = true;
}

bool Relay::waitForClosedByClient(std::size_t count) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30),
                             [this, count] { return closedByClient_ >= count; });
}

}  // namespace VanticRestKit::test
