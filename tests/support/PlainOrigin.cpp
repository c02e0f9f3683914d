#include "PlainOrigin.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <tuple>
#include <utility>

namespace VanticRestKit::test {

namespace {

constexpr std::string_view mark = "/~~~~~~~~";

}  // namespace

std::string targetFor(std::size_t size, std::uint64_t id) {
    return std::string(mark) + std::to_string(size) + "." + std::to_string(id);
}

std::string bodyFor(std::string_view target) {
    std::string body(target);
    if (target.starts_with(mark)) {
        const std::size_t size = std::strtoul(body.c_str() + mark.size(), nullptr, 10);
        if (size > body.size()) body.append(size - body.size(), 'x');
    }
    return body;
}

class PlainOrigin::Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(PlainOrigin& origin, Socket socket) : origin_(origin), socket_(std::move(socket)) {}

    void start() {
        origin_.reactor_.watch(socket_.descriptor(), EPOLLIN,
                               [self = shared_from_this()](std::uint32_t events) { self->isReady(events); });
    }

private:
    void isReady(std::uint32_t events) {
        if ((events & EPOLLOUT) != 0) sendOut();
        if (!socket_ || (events & (EPOLLIN | EPOLLHUP | EPOLLERR)) == 0) return;
        std::array<char, 16 * 1024> bytes;
        const ssize_t count = recv(socket_.descriptor(), bytes.data(), bytes.size(), 0);
        if (count < 0 && errno == EAGAIN) return;
        if (count < 0) return close();
        if (count == 0) {
            // Requests received so far are still answered.
            isLast_ = true;
        } else if (!isLast_) {
            in_.append(bytes.data(), static_cast<std::size_t>(count));
            while (!isLast_ && answerNext()) {
            }
        }
        sendOut();
    }

    bool answerNext() {
        const auto end = in_.find("\r\n\r\n");
        if (end == std::string::npos) return false;
        const auto lengthAt = in_.find("Content-Length: ");
        const std::size_t length =
            lengthAt < end ? std::strtoul(in_.c_str() + lengthAt + 16, nullptr, 10) : 0;
        if (in_.size() < end + 4 + length) return false;
        ++origin_.requests_;
        const auto from = in_.find(' ') + 1;
        const std::string body = bodyFor(in_.substr(from, in_.find(' ', from) - from));
        in_.erase(0, end + 4 + length);
        isLast_ = origin_.closesAfter_ > 0 && origin_.numbers_() % origin_.closesAfter_ == 0;
        out_ += "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n";
        out_ += isLast_ ? "Connection: close\r\n\r\n" : "\r\n";
        out_ += body;
        return true;
    }

    void sendOut() {
        while (!out_.empty()) {
            const ssize_t sent = send(socket_.descriptor(), out_.data(), out_.size(), MSG_NOSIGNAL);
            if (sent < 0 && errno == EAGAIN) break;
            if (sent < 0) return close();
            out_.erase(0, static_cast<std::size_t>(sent));
        }
        if (out_.empty() && isLast_) return close();
        origin_.reactor_.change(socket_.descriptor(), out_.empty() ? EPOLLIN : EPOLLOUT);
    }

    void close() {
        if (!socket_) return;
        origin_.reactor_.forget(socket_.descriptor());
        socket_.close();
    }

    PlainOrigin& origin_;
    Socket socket_;
    std::string in_;
    std::string out_;
    bool isLast_ = false;
};

PlainOrigin::PlainOrigin(Reactor& reactor, std::size_t closesAfter, std::uint64_t seed, Loopback loopback)
    : reactor_(reactor), closesAfter_(closesAfter), numbers_(seed) {
    std::tie(listener_, port_) = listenOnLoopback(loopback);
    reactor_.watch(listener_.descriptor(), EPOLLIN, [this](std::uint32_t) {
        Socket socket(::accept4(listener_.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket) return;
        const int on = 1;
        setsockopt(socket.descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
        std::make_shared<Connection>(*this, std::move(socket))->start();
    });
}

PlainOrigin::~PlainOrigin() { reactor_.forget(listener_.descriptor()); }

}  // namespace VanticRestKit::test
