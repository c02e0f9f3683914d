#include <VanticRestKit/platform/http/curl/detail/Connections.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

void writeEnds(std::string& text, std::string_view remoteAddress, int remotePort,
               std::string_view localAddress, int localPort) {
    text.clear();
    const auto add = [&text](std::string_view address, int port) {
        std::array<char, 12> digits;
        const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), port);
        text.append(address).append(1, ' ').append(digits.data(), written.ptr).append(1, ' ');
    };
    add(remoteAddress, remotePort);
    add(localAddress, localPort);
}

struct End {
    std::array<char, INET6_ADDRSTRLEN> address{};
    int port = 0;
};

using AskForName = int (*)(int, sockaddr*, socklen_t*);

std::optional<End> endOf(int socket, AskForName ask) {
    sockaddr_storage storage{};
    socklen_t size = sizeof(storage);
    if (ask(socket, reinterpret_cast<sockaddr*>(&storage), &size) != 0) return std::nullopt;
    End end;
    const void* address = nullptr;
    if (storage.ss_family == AF_INET) {
        const auto& v4 = reinterpret_cast<const sockaddr_in&>(storage);
        address = &v4.sin_addr;
        end.port = ntohs(v4.sin_port);
    } else if (storage.ss_family == AF_INET6) {
        const auto& v6 = reinterpret_cast<const sockaddr_in6&>(storage);
        address = &v6.sin6_addr;
        end.port = ntohs(v6.sin6_port);
    } else {
        return std::nullopt;
    }
    inet_ntop(storage.ss_family, address, end.address.data(), static_cast<socklen_t>(end.address.size()));
    return end;
}

std::string endsOf(int socket) {
    const auto remote = endOf(socket, &getpeername);
    const auto local = endOf(socket, &getsockname);
    if (!remote || !local) return {};
    std::string text;
    writeEnds(text, remote->address.data(), remote->port, local->address.data(), local->port);
    return text;
}

}  // namespace

int Connections::open(int family, int type, int protocol) {
    // libcurl also makes it non-blocking, but does not check whether that succeeded. A blocking read would delay all
    // loads.
    const int socket = ::socket(family, type | SOCK_CLOEXEC | SOCK_NONBLOCK, protocol);
    if (socket >= 0) bySocket_[socket] = std::make_shared<Connection>(Connection{.socket = socket});
    return socket;
}

int Connections::close(int socket) {
    if (const auto found = bySocket_.find(socket); found != bySocket_.end()) {
        byEnds_.erase(found->second->ends);
        found->second->socket = -1;
        bySocket_.erase(found);
    }
    return ::close(socket);
}

std::shared_ptr<Connection> Connections::find(const ConnectionEnds& ends) {
    if (ends.remoteAddress == nullptr || ends.localAddress == nullptr) return nullptr;
    writeEnds(wanted_, ends.remoteAddress, ends.remotePort, ends.localAddress, ends.localPort);
    if (const auto found = byEnds_.find(wanted_); found != byEnds_.end()) return found->second;
    // The ends of each connection are determined once, at the first search after it was made.
    for (const auto& [socket, connection] : bySocket_) {
        if (!connection->ends.empty()) continue;
        connection->ends = endsOf(socket);
        if (connection->ends.empty()) continue;
        byEnds_[connection->ends] = connection;
        if (connection->ends == wanted_) return connection;
    }
    return nullptr;
}

std::shared_ptr<Connection> Connections::find(int socket) const {
    const auto found = bySocket_.find(socket);
    return found == bySocket_.end() ? nullptr : found->second;
}

void Connections::shutDown(const Connection& connection) const {
    if (connection.socket >= 0) ::shutdown(connection.socket, SHUT_RDWR);
}

void Connections::shutDownIdle() const {
    for (const auto& [socket, connection] : bySocket_) {
        // A socket that was never used may still be connecting for a request.
        if (connection->streams == 0 && connection->isReady) shutDown(*connection);
    }
}

void Connections::shutDownFrom(const std::string& address) const {
    for (const auto& [socket, connection] : bySocket_) {
        const auto local = endOf(socket, &getsockname);
        if (local && address == local->address.data()) shutDown(*connection);
    }
}

std::optional<TimePoint> Connections::lastReceived(const Connection& connection, TimePoint now) const {
#if defined(TCP_INFO)
    tcp_info info{};
    socklen_t size = sizeof(info);
    if (connection.socket < 0 || getsockopt(connection.socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) {
        return std::nullopt;
    }
    // Emulators fill in only the first bytes.
    constexpr std::size_t needed = offsetof(tcp_info, tcpi_last_data_recv) + sizeof(info.tcpi_last_data_recv);
    if (size < needed) return std::nullopt;
    return now - std::chrono::milliseconds(info.tcpi_last_data_recv);
#else
    static_cast<void>(connection);
    static_cast<void>(now);
    return std::nullopt;
#endif
}

}  // namespace VanticRestKit::detail
