#include "FaultRelay.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <limits>
#include <tuple>
#include <utility>

namespace VanticRestKit::test {

namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

void sendAtOnce(const Socket& socket) {
    const int on = 1;
    setsockopt(socket.descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
}

Socket beginConnect(std::uint16_t port) {
    Socket made(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    static_cast<void>(
        connect(made.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
    sendAtOnce(made);
    return made;
}

}  // namespace

/// One connection. The reactor's callbacks keep it alive until it ends.
class FaultRelay::Link : public std::enable_shared_from_this<Link> {
public:
    Link(FaultRelay& relay, Socket client, std::size_t faultAt)
        : relay_(relay),
          client_(std::move(client)),
          server_(beginConnect(relay.target_)),
          faultAt_(faultAt) {}

    void start() {
        const auto self = shared_from_this();
        relay_.reactor_.watch(client_.descriptor(), EPOLLIN,
                              [self](std::uint32_t events) { self->clientIsReady(events); });
        // The request waits until the server is connected.
        relay_.reactor_.watch(server_.descriptor(), EPOLLOUT,
                              [self](std::uint32_t events) { self->serverIsReady(events); });
    }

private:
    struct Piece {
        Reactor::Clock::time_point due;
        std::string bytes;
    };

    void clientIsReady(std::uint32_t events) {
        if ((events & EPOLLOUT) != 0) sendToClient();
        if (isOver_ || (events & (EPOLLIN | EPOLLHUP | EPOLLERR)) == 0) return;
        std::array<char, 16 * 1024> bytes;
        const ssize_t count = recv(client_.descriptor(), bytes.data(), bytes.size(), 0);
        if (count < 0 && errno == EAGAIN) return;
        if (count <= 0) {
            end(false);
        } else if (!isDead_) {
            toServer_.append(bytes.data(), static_cast<std::size_t>(count));
            sendToServer();
        }
    }

    void serverIsReady(std::uint32_t events) {
        isConnected_ = true;
        if ((events & EPOLLOUT) != 0) sendToServer();
        if (isOver_ || (events & (EPOLLIN | EPOLLHUP | EPOLLERR)) == 0) return;
        std::array<char, 16 * 1024> bytes;
        const ssize_t count = recv(server_.descriptor(), bytes.data(), bytes.size(), 0);
        if (count < 0 && errno == EAGAIN) return;
        if (count <= 0) {
            serverHasEnded_ = true;
            relay_.reactor_.forget(server_.descriptor());
            endIfAllIsSent();
        } else if (!isDead_) {
            arrived(std::string(bytes.data(), static_cast<std::size_t>(count)));
        }
    }

    void sendToServer() {
        if (!isConnected_ || serverHasEnded_) return;
        const bool isFirst = !toServer_.empty() && carriedUp_ == 0;
        const ssize_t sent = send(server_.descriptor(), toServer_.data(), toServer_.size(), MSG_NOSIGNAL);
        if (sent > 0) {
            carriedUp_ += static_cast<std::size_t>(sent);
            toServer_.erase(0, static_cast<std::size_t>(sent));
        }
        relay_.reactor_.change(server_.descriptor(), toServer_.empty() ? EPOLLIN : EPOLLIN | EPOLLOUT);
        if (isFirst && willFail() && fault() == LinkFault::halfCloseRequest) {
            ++relay_.faults_;
            shutdown(server_.descriptor(), SHUT_WR);
        }
    }

    // Called with bytes from the server, which are forwarded after the latency.
    void arrived(std::string bytes) {
        const LinkConditions& conditions = relay_.conditions_;
        auto delay = conditions.minLatency;
        delay += std::chrono::milliseconds(
            relay_.random(static_cast<std::size_t>((conditions.maxLatency - conditions.minLatency).count())));
        const bool isPause = fault() == LinkFault::pause && passesFault(bytes.size());
        if (isPause) {
            ++relay_.faults_;
            faultAt_ = never;
            delay += std::chrono::milliseconds(
                1 + relay_.random(static_cast<std::size_t>(conditions.longestPause.count())));
        }
        carriedDown_ += bytes.size();
        auto due = Reactor::Clock::now() + delay;
        // Keeps the bytes in order.
        if (!toClient_.empty()) due = std::max(due, toClient_.back().due);
        toClient_.push_back({due, std::move(bytes)});
        if (delay.count() == 0) {
            sendToClient();
        } else {
            relay_.reactor_.after(delay, [self = shared_from_this()] { self->sendToClient(); });
        }
    }

    bool willFail() const { return faultAt_ != never; }
    LinkFault fault() const { return willFail() ? relay_.conditions_.fault : LinkFault::none; }
    bool passesFault(std::size_t size) const { return willFail() && carriedDown_ + size >= faultAt_; }

    // The number of bytes that may be forwarded before the fault.
    std::size_t leftBeforeFault() const {
        const LinkFault kind = fault();
        const bool isCut = kind == LinkFault::stall || kind == LinkFault::truncate ||
                           kind == LinkFault::reset || kind == LinkFault::halfCloseAnswer;
        return isCut ? faultAt_ - sentDown_ : never;
    }

    void sendToClient() {
        while (!isOver_ && !isDead_ && !toClient_.empty()) {
            Piece& piece = toClient_.front();
            const auto now = Reactor::Clock::now();
            if (piece.due > now) {
                relay_.reactor_.after(piece.due - now, [self = shared_from_this()] { self->sendToClient(); });
                return;
            }
            const std::size_t size = std::min(piece.bytes.size(), leftBeforeFault());
            const ssize_t sent = send(client_.descriptor(), piece.bytes.data(), size, MSG_NOSIGNAL);
            if (sent < 0 && errno == EAGAIN) {
                relay_.reactor_.change(client_.descriptor(), EPOLLIN | EPOLLOUT);
                return;
            }
            if (sent < 0) return end(false);
            sentDown_ += static_cast<std::size_t>(sent);
            piece.bytes.erase(0, static_cast<std::size_t>(sent));
            if (leftBeforeFault() == 0) return fail();
            if (piece.bytes.empty()) toClient_.pop_front();
        }
        if (isOver_) return;
        relay_.reactor_.change(client_.descriptor(), EPOLLIN);
        endIfAllIsSent();
    }

    void fail() {
        ++relay_.faults_;
        isDead_ = true;
        switch (relay_.conditions_.fault) {
            case LinkFault::truncate: return end(false);
            case LinkFault::reset: return end(true);
            case LinkFault::halfCloseAnswer: shutdown(client_.descriptor(), SHUT_WR); break;
            default: break;
        }
        // The client is not notified. Whatever it sends is read and discarded.
        relay_.reactor_.change(client_.descriptor(), EPOLLIN);
        if (!serverHasEnded_) relay_.reactor_.forget(server_.descriptor());
        serverHasEnded_ = true;
        server_.close();
        toClient_.clear();
    }

    void endIfAllIsSent() {
        if (serverHasEnded_ && toClient_.empty() && !isDead_ && !isOver_) end(false);
    }

    void end(bool withReset) {
        if (std::exchange(isOver_, true)) return;
        relay_.reactor_.forget(client_.descriptor());
        if (server_) relay_.reactor_.forget(server_.descriptor());
        if (withReset) client_.reset();
        client_.close();
        server_.close();
    }

    FaultRelay& relay_;
    Socket client_;
    Socket server_;
    std::size_t faultAt_;
    std::string toServer_;
    std::deque<Piece> toClient_;
    std::size_t carriedUp_ = 0;
    std::size_t carriedDown_ = 0;
    std::size_t sentDown_ = 0;
    bool isConnected_ = false;
    bool serverHasEnded_ = false;
    bool isDead_ = false;
    bool isOver_ = false;
};

FaultRelay::FaultRelay(Reactor& reactor, std::uint16_t target, const LinkConditions& conditions,
                       std::uint64_t seed)
    : reactor_(reactor), target_(target), conditions_(conditions), numbers_(seed) {
    std::tie(listener_, port_) = listenOnLoopback();
    reactor_.watch(listener_.descriptor(), EPOLLIN, [this](std::uint32_t) { accept(); });
}

FaultRelay::~FaultRelay() { reactor_.forget(listener_.descriptor()); }

std::size_t FaultRelay::random(std::size_t last) {
    return static_cast<std::size_t>(numbers_() % (std::uint64_t{last} + 1));
}

void FaultRelay::accept() {
    while (true) {
        Socket client(::accept4(listener_.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!client) return;
        ++connections_;
        sendAtOnce(client);
        constexpr std::size_t whole = 1000000;
        const bool fails =
            static_cast<double>(random(whole)) < conditions_.share * static_cast<double>(whole);
        const std::size_t faultAt = fails ? 1 + random(conditions_.lastByte) : never;
        if (fails && conditions_.fault == LinkFault::refuse) {
            ++faults_;
            client.reset();
            continue;
        }
        std::make_shared<Link>(*this, std::move(client), faultAt)->start();
    }
}

}  // namespace VanticRestKit::test
