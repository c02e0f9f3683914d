#pragma once

#include <cstdint>
#include <string>

namespace VanticRestKit::bench {

/// The time from the start of a process to its first request, in seconds.
struct FirstRequest {
    /// Elapsed time until the last byte of the request's head arrives; for a TLS connection, until its first byte
    /// arrives.
    double wall = 0;
    /// Processor time of the whole process.
    double processor = 0;
};

/// A server that measures the first request of processes.
class FirstRequests {
public:
    FirstRequests();
    ~FirstRequests();
    FirstRequests(const FirstRequests&) = delete;
    FirstRequests& operator=(const FirstRequests&) = delete;

    /// Starts `program first URL`, with a URL of this server, and answers its request. An https connection is closed
    /// after its first bytes.
    FirstRequest of(const std::string& program, bool isHTTPS) const;

private:
    int listener_ = -1;
    std::uint16_t port_ = 0;
};

}  // namespace VanticRestKit::bench
