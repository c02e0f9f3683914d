#include "FaultServer.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <algorithm>
#include <array>
#include <cctype>
#include <csignal>
#include <cstdlib>

namespace VanticRestKit::test {

namespace {

constexpr std::chrono::seconds deadline{30};

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

RawRequest parseHead(const std::string& head) {
    RawRequest request;
    std::size_t at = head.find("\r\n");
    const std::string line = head.substr(0, at);
    const auto first = line.find(' ');
    const auto last = line.rfind(' ');
    request.method = line.substr(0, first);
    request.target = line.substr(first + 1, last - first - 1);
    while (at + 2 < head.size()) {
        const std::size_t begin = at + 2;
        at = head.find("\r\n", begin);
        const std::string field = head.substr(begin, at - begin);
        const auto colon = field.find(':');
        if (colon == std::string::npos) continue;
        const auto begins = field.find_first_not_of(' ', colon + 1);
        const std::string value = begins == std::string::npos ? std::string() : field.substr(begins);
        const auto [held, isFirst] = request.headers.emplace(lowered(field.substr(0, colon)), value);
        if (!isFirst) held->second += ", " + value;
    }
    return request;
}

SSL_CTX* makeTls(const Identity& identity) {
    SSL_CTX* const context = SSL_CTX_new(TLS_server_method());
    EXPECT_EQ(SSL_CTX_use_certificate(context, identity.certificate.get()), 1);
    EXPECT_EQ(SSL_CTX_use_PrivateKey(context, identity.key.get()), 1);
    return context;
}

}  // namespace

FaultConnection::FaultConnection(FaultServer& server, std::size_t index, Socket socket)
    : server_(server), index_(index), socket_(std::move(socket)) {}

bool FaultConnection::startTls() {
    ssl_.reset(SSL_new(server_.tls_.get()));
    SSL_set_fd(ssl_.get(), socket_.descriptor());
    return SSL_accept(ssl_.get()) == 1;
}

std::size_t FaultConnection::receive(char* bytes, std::size_t capacity) {
    const auto count = ssl_ ? SSL_read(ssl_.get(), bytes, static_cast<int>(capacity))
                            : recv(socket_.descriptor(), bytes, capacity, 0);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool FaultConnection::readMore() {
    char bytes[16 * 1024];
    const std::size_t count = receive(bytes, sizeof(bytes));
    unread_.append(bytes, count);
    if (count == 0 && !server_.isStopping()) server_.noteClosedByClient();
    return count > 0;
}

std::optional<RawRequest> FaultConnection::readHead() {
    std::size_t end = 0;
    while ((end = unread_.find("\r\n\r\n")) == std::string::npos) {
        if (!readMore()) return std::nullopt;
    }
    RawRequest request = parseHead(unread_.substr(0, end + 2));
    request.connection = index_;
    unread_.erase(0, end + 4);
    return request;
}

std::optional<RawRequest> FaultConnection::readRequest() {
    auto request = readHead();
    if (!request) return std::nullopt;
    const std::size_t length = std::strtoul(request->header("content-length").c_str(), nullptr, 10);
    while (unread_.size() < length) {
        if (!readMore()) return std::nullopt;
    }
    request->body = unread_.substr(0, length);
    unread_.erase(0, length);
    server_.note(*request);
    return request;
}

bool FaultConnection::send(std::string_view bytes) {
    if (!socket_) return false;
    if (!ssl_) return sendAll(socket_.descriptor(), bytes.data(), bytes.size());
    return bytes.empty() || SSL_write(ssl_.get(), bytes.data(), static_cast<int>(bytes.size())) > 0;
}

bool FaultConnection::trickle(std::string_view bytes, std::chrono::milliseconds pause) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (!send(bytes.substr(i, 1))) return false;
        pace(pause);
    }
    return true;
}

bool FaultConnection::readSlowly(std::size_t size, std::size_t piece, std::chrono::milliseconds pause) {
    std::size_t sincePause = unread_.size();
    std::size_t total = std::exchange(unread_, {}).size();
    while (total < size) {
        if (!readMore()) return false;
        sincePause += unread_.size();
        total += std::exchange(unread_, {}).size();
        if (sincePause < piece) continue;
        sincePause = 0;
        pace(pause);
    }
    return true;
}

void FaultConnection::relayTo(std::uint16_t port) {
    const Socket other = connectToLoopback(port);
    std::array<pollfd, 2> ends{pollfd{socket_.descriptor(), POLLIN, 0},
                               pollfd{other.descriptor(), POLLIN, 0}};
    std::array<char, 16 * 1024> bytes;
    while (other && poll(ends.data(), ends.size(), -1) > 0) {
        for (std::size_t i = 0; i < ends.size(); ++i) {
            if (ends[i].revents == 0) continue;
            const ssize_t count = recv(ends[i].fd, bytes.data(), bytes.size(), 0);
            if (count <= 0 || !sendAll(ends[1 - i].fd, bytes.data(), static_cast<std::size_t>(count))) return;
        }
    }
}

bool FaultConnection::stall() {
    while (readMore()) {
    }
    return !server_.isStopping();
}

void FaultConnection::ignore() {
    std::unique_lock lock(server_.mutex_);
    server_.changed_.wait(lock, [this] { return server_.isStopping_; });
}

void FaultConnection::reset() {
    ssl_.reset();
    server_.forget(socket_.descriptor());
    socket_.reset();
}

void FaultConnection::closeInOrder() {
    if (!socket_) return;
    if (ssl_) SSL_shutdown(ssl_.get());
    ssl_.reset();
    shutdown(socket_.descriptor(), SHUT_WR);
    server_.forget(socket_.descriptor());
    socket_.close();
}

void FaultConnection::pace(std::chrono::milliseconds time) {
    std::unique_lock lock(server_.mutex_);
    server_.changed_.wait_for(lock, time, [this] { return server_.isStopping_; });
}

FaultServer::FaultServer(Script script, const Identity* identity, Loopback loopback)
    : script_(std::move(script)),
      isSecure_(identity != nullptr),
      loopback_(loopback),
      tls_(nullptr, &SSL_CTX_free) {
    if (identity != nullptr) tls_.reset(makeTls(*identity));
    std::tie(listener_, port_) = listenOnLoopback(loopback);
    acceptor_ = std::thread([this] { accept(); });
}

FaultServer::~FaultServer() {
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
        changed_.notify_all();
        for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
    }
    shutdown(listener_.descriptor(), SHUT_RDWR);
    acceptor_.join();
    for (std::thread& thread : threads_) thread.join();
}

void FaultServer::accept() {
    // A client that disconnects must not end the process. The threads of the connections inherit this mask.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    while (true) {
        Socket socket(::accept4(listener_.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket) return;
        const int on = 1;
        setsockopt(socket.descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
        const std::lock_guard lock(mutex_);
        if (isStopping_) return;
        const std::size_t index = connections_++;
        changed_.notify_all();
        sockets_.insert(socket.descriptor());
        threads_.emplace_back([this, index, held = std::move(socket)]() mutable {
            FaultConnection connection(*this, index, std::move(held));
            if (!isSecure_ || connection.startTls()) script_(connection);
            connection.closeInOrder();
            const std::lock_guard count(mutex_);
            ++ended_;
            changed_.notify_all();
        });
    }
}

void FaultServer::note(const RawRequest& request) {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
    changed_.notify_all();
}

void FaultServer::noteClosedByClient() {
    const std::lock_guard lock(mutex_);
    ++closedByClient_;
    changed_.notify_all();
}

// Called before a socket is closed, since its number can be reused right afterwards.
void FaultServer::forget(int socket) {
    const std::lock_guard lock(mutex_);
    sockets_.erase(socket);
}

bool FaultServer::isStopping() const {
    const std::lock_guard lock(mutex_);
    return isStopping_;
}

std::string FaultServer::url(const std::string& path) const {
    const std::string host = loopback_ == Loopback::v6 ? "[::1]" : "127.0.0.1";
    return (isSecure_ ? "https://" : "http://") + host + ":" + std::to_string(port_) + path;
}

std::vector<RawRequest> FaultServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::size_t FaultServer::connectionCount() const {
    const std::lock_guard lock(mutex_);
    return connections_;
}

bool FaultServer::waitForRequests(std::size_t count) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, deadline, [this, count] { return requests_.size() >= count; });
}

bool FaultServer::waitForClosedByClient(std::size_t count) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, deadline, [this, count] { return closedByClient_ >= count; });
}

bool FaultServer::waitForEnded(std::size_t count) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, deadline, [this, count] { return ended_ >= count; });
}

void FaultServer::releaseHeld() {
    const std::lock_guard lock(mutex_);
    isReleased_ = true;
    changed_.notify_all();
}

bool FaultServer::hold() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isReleased_ || isStopping_; });
    return !isStopping_;
}

std::string answer(int status, std::string_view body, std::string_view headers) {
    std::string text = "HTTP/1.1 " + std::to_string(status) + " Status\r\n";
    text.append(headers).append("Content-Length: ").append(std::to_string(body.size())).append("\r\n\r\n");
    return text.append(body);
}

FaultServer::Script always(std::string reply) {
    return [reply = std::move(reply)](FaultConnection& connection) {
        while (connection.readRequest()) {
            if (!connection.send(reply)) return;
        }
    };
}

}  // namespace VanticRestKit::test
