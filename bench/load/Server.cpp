#include "Server.h"

#include <VanticRestKit/platform/date/detail/HTTPDate.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>

namespace VanticRestKit::bench {

namespace {

void must(bool worked, const char* what) {
    if (worked) return;
    std::perror(what);
    std::_Exit(1);
}

/// Listens on a free port of the loopback interface.
int listening(std::uint16_t& port) {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    must(bind(listener, reinterpret_cast<const sockaddr*>(&address), size) == 0, "bind");
    must(listen(listener, 1024) == 0, "listen");
    must(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) == 0, "getsockname");
    port = ntohs(address.sin_port);
    return listener;
}

/// Serves requests until the process is killed. Writes each response at once, and reads no bodies.
class Loop {
public:
    Loop(int listener, int releasing, const std::string& body)
        : listener_(listener), releasing_(releasing), poll_(epoll_create1(0)) {
        const std::string status = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n";
        // The `Date` header, which caches use.
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const std::string date =
            "Date: " + detail::formatHTTPDate(std::chrono::floor<std::chrono::seconds>(now)) + "\r\n";
        const std::string rest = "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
        answer_ = status + rest;
        fresh_ = status + date + "Cache-Control: max-age=3600\r\n" + rest;
        checked_ = status + date + "Cache-Control: no-cache\r\nETag: \"1\"\r\n" + rest;
        unchanged_ = "HTTP/1.1 304 Not Modified\r\n" + date + "ETag: \"1\"\r\n\r\n";
        watch(listener_);
        watch(releasing_);
    }

    [[noreturn]] void run() {
        std::array<epoll_event, 64> events{};
        for (;;) {
            const int count = epoll_wait(poll_, events.data(), static_cast<int>(events.size()), -1);
            for (int i = 0; i < count; ++i) handle(events[static_cast<std::size_t>(i)].data.fd);
        }
    }

private:
    struct Connection {
        std::string request;
        std::size_t held = 0;
    };

    void watch(int file) {
        epoll_event event{};
        event.events = EPOLLIN;
        event.data.fd = file;
        must(epoll_ctl(poll_, EPOLL_CTL_ADD, file, &event) == 0, "epoll_ctl");
    }

    void handle(int file) {
        if (file == listener_) {
            const int connection = accept(listener_, nullptr, nullptr);
            if (connection < 0) return;
            const int yes = 1;
            setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
            connections_[connection] = {};
            watch(connection);
        } else if (file == releasing_) {
            holds_ = false;
            epoll_ctl(poll_, EPOLL_CTL_DEL, releasing_, nullptr);
            answerHeld();
        } else {
            read(file);
        }
    }

    void answerHeld() {
        for (auto& [open, connection] : connections_) {
            for (; connection.held > 0; --connection.held) send(open, answer_);
        }
        heldTogether_ = 0;
    }

    /// Whether a request waits for others; the last one of them has all answered.
    bool waitsForOthers(int file, std::string_view line) {
        constexpr std::string_view path = " /together/";
        const auto found = line.find(path);
        if (found == std::string_view::npos) return false;
        ++connections_[file].held;
        if (++heldTogether_ >= std::atoi(line.data() + found + path.size())) answerHeld();
        return true;
    }

    void read(int file) {
        std::array<char, 16384> bytes;
        const ssize_t size = recv(file, bytes.data(), bytes.size(), 0);
        if (size <= 0) {
            connections_.erase(file);
            close(file);
            return;
        }
        Connection& connection = connections_[file];
        connection.request.append(bytes.data(), static_cast<std::size_t>(size));
        for (std::size_t end; (end = connection.request.find("\r\n\r\n")) != std::string::npos;) {
            const std::string_view head(connection.request.data(), end);
            const std::string_view line = head.substr(0, head.find("\r\n"));
            if (holds_ && line.find(" /held") != std::string_view::npos) {
                ++connection.held;
            } else if (!waitsForOthers(file, line)) {
                send(file, answerTo(head));
            }
            connection.request.erase(0, end + 4);
        }
    }

    std::string_view answerTo(std::string_view head) const {
        const std::string_view line = head.substr(0, head.find("\r\n"));
        if (line.find(" /fresh") != std::string_view::npos) return fresh_;
        if (line.find(" /checked") == std::string_view::npos) return answer_;
        const bool isKnown = head.find("If-None-Match: \"1\"") != std::string_view::npos;
        return isKnown ? unchanged_ : checked_;
    }

    static void send(int file, std::string_view rest) {
        while (!rest.empty()) {
            const ssize_t sent = ::send(file, rest.data(), rest.size(), MSG_NOSIGNAL);
            if (sent <= 0) return;
            rest.remove_prefix(static_cast<std::size_t>(sent));
        }
    }

    int listener_;
    int releasing_;
    int poll_;
    std::string answer_;
    // Responses that a cache may use for an hour, and responses that it has to revalidate.
    std::string fresh_;
    std::string checked_;
    std::string unchanged_;
    bool holds_ = true;
    int heldTogether_ = 0;
    std::map<int, Connection> connections_;
};

}  // namespace

Server::Server(const std::string& body) {
    const int listener = listening(port_);
    std::array<int, 2> releasing{};
    must(pipe(releasing.data()) == 0, "pipe");
    process_ = fork();
    must(process_ >= 0, "fork");
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(releasing[1]);
        Loop(listener, releasing[0], body).run();
    }
    close(listener);
    close(releasing[0]);
    releasing_ = releasing[1];
}

Server::~Server() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    close(releasing_);
}

void Server::release() { must(write(releasing_, "x", 1) == 1, "write"); }

}  // namespace VanticRestKit::bench
