#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace VanticRestKit::bench {

/// A small HTTP/1.1 server in a process of its own, so that its work is not counted. It answers every request
/// with the same body and keeps its connections; a request whose path begins with "/held" waits until
/// `release`. An answer to "/fresh" may be kept for an hour, and one to "/checked" has to be asked about.
class Server {
public:
    /// Call before the first thread is started.
    explicit Server(const std::string& body);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::uint16_t port() const noexcept { return port_; }

    /// Answers what was held, and from now on holds nothing.
    void release();

private:
    pid_t process_ = -1;
    std::uint16_t port_ = 0;
    int releasing_ = -1;
};

}  // namespace VanticRestKit::bench
