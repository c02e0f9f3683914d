#include "FirstRequest.h"

#include "../support/Measure.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace VanticRestKit::bench {

namespace {

using Clock = std::chrono::steady_clock;

void must(bool worked, const char* what) {
    if (worked) return;
    std::perror(what);
    std::_Exit(1);
}

pid_t start(const std::string& program, const std::string& url) {
    std::string task = "first";
    std::string address = url;
    std::string name = program;
    const std::array<char*, 4> arguments{name.data(), task.data(), address.data(), nullptr};
    // Discards the error report: the TLS connection is closed after its first bytes on purpose.
    posix_spawn_file_actions_t quietly;
    posix_spawn_file_actions_init(&quietly);
    posix_spawn_file_actions_addopen(&quietly, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    must(posix_spawn(&process, program.c_str(), &quietly, nullptr, arguments.data(), environ) == 0,
         "posix_spawn");
    posix_spawn_file_actions_destroy(&quietly);
    return process;
}

/// Reads the head of a request, or the first bytes of a TLS connection.
void readRequest(int connection, bool isHTTPS) {
    std::string request;
    std::array<char, 4096> bytes;
    while (request.find("\r\n\r\n") == std::string::npos) {
        const ssize_t size = recv(connection, bytes.data(), bytes.size(), 0);
        must(size > 0, "recv");
        if (isHTTPS) return;
        request.append(bytes.data(), static_cast<std::size_t>(size));
    }
}

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

}  // namespace

FirstRequests::FirstRequests() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    must(bind(listener_, reinterpret_cast<const sockaddr*>(&address), size) == 0, "bind");
    must(listen(listener_, 8) == 0, "listen");
    must(getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) == 0, "getsockname");
    port_ = ntohs(address.sin_port);
}

FirstRequests::~FirstRequests() { close(listener_); }

FirstRequest FirstRequests::of(const std::string& program, bool isHTTPS) const {
    const std::string url = (isHTTPS ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(port_);
    const auto before = Clock::now();
    const pid_t process = start(program, url);
    const int connection = accept(listener_, nullptr, nullptr);
    must(connection >= 0, "accept");
    readRequest(connection, isHTTPS);
    const std::chrono::duration<double> wall = Clock::now() - before;

    const std::string body = R"({"title":"A","_links":{"self":{"href":"video/1"}}})";
    const std::string answer = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " +
                               std::to_string(body.size()) + "\r\n\r\n" + body;
    if (!isHTTPS) must(send(connection, answer.data(), answer.size(), MSG_NOSIGNAL) > 0, "send");
    close(connection);
    int status = 0;
    rusage usage{};
    must(wait4(process, &status, 0, &usage) == process, "wait4");
    return {wall.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime)};
}

}  // namespace VanticRestKit::bench
