#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace VanticRestKit::bench {

/// A small HTTP/1.1 server in a separate process, so that its work is not counted. It responds to every request with
/// the same body and keeps connections open. Requests whose path begins with "/held" wait until `release`, and those to
/// "/together/N" until N of them wait. Responses to "/fresh" may be cached for an hour, and those to "/checked" must be
/// revalidated.
class Server {
public:
    /// Must be called before the first thread is started.
    explicit Server(const std::string& body);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::uint16_t port() const noexcept { return port_; }

    /// Answers the held requests; later ones are not held.
    void release();

private:
    pid_t process_ = -1;
    std::uint16_t port_ = 0;
    int releasing_ = -1;
};

}  // namespace VanticRestKit::bench
