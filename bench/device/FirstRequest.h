#pragma once

#include <cstdint>
#include <string>

namespace VanticRestKit::bench {

/// What a process took from its start to its first request, in seconds.
struct FirstRequest {
    /// By the clock, until the last byte of the request's head had arrived. Of a TLS connection: until its first byte
    /// had.
    double wall = 0;
    /// The processor time of the whole process, until its end.
    double processor = 0;
};

/// The server that first requests go to.
class FirstRequests {
public:
    FirstRequests();
    ~FirstRequests();
    FirstRequests(const FirstRequests&) = delete;
    FirstRequests& operator=(const FirstRequests&) = delete;

    /// Starts `program first URL`, with a URL of this server, and answers its request. Over https the connection is
    /// closed after its first bytes.
    FirstRequest of(const std::string& program, bool isHTTPS) const;

private:
    int listener_ = -1;
    std::uint16_t port_ = 0;
};

}  // namespace VanticRestKit::bench
