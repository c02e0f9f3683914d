#pragma once

/// \file
/// `Http2Origin`: an HTTP/2 server that handles many requests on one thread and can simulate faults.

#include "Certificates.h"
#include "Reactor.h"
#include "Sockets.h"

#include <openssl/ssl.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <vector>

namespace VanticRestKit::test {

/// How an HTTP/2 server treats its requests. Shares are of all requests, from 0 to 1.
struct Http2Conduct {
    /// The maximum random delay of a response, so that responses arrive in a different order than requests.
    std::chrono::milliseconds longestWait{0};
    /// The stream is reset before the response, after its head, or inside its body.
    double resets = 0;
    /// The stream is refused, so the request was not processed.
    double refusals = 0;
    /// The server sends GOAWAY: it answers the requests received so far, and no later ones.
    double goAways = 0;
    /// The same, but the last request was not processed either, and the GOAWAY says so.
    double goAwaysWithoutLast = 0;
    /// The share of connections that get the second certificate instead of the first.
    double otherCertificates = 0;
    std::uint32_t maxStreams = 100;
};

/// Speaks HTTP/2 over TLS. For the reactor's thread.
class Http2Origin {
public:
    /// `other` is the second certificate, null if there is none.
    Http2Origin(Reactor& reactor, const Http2Conduct& conduct, const Identity& identity,
                const Identity* other, std::uint64_t seed, Loopback loopback = Loopback::v4);
    ~Http2Origin();
    Http2Origin(const Http2Origin&) = delete;
    Http2Origin& operator=(const Http2Origin&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    std::size_t connectionCount() const noexcept { return connections_; }
    std::size_t faultCount() const noexcept { return faults_; }
    /// From now on every new connection gets the second certificate, or the first one again. For any thread.
    void presentOther(bool other) noexcept { presentsOther_ = other; }

private:
    class Connection;
    using Context = std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)>;

    std::size_t random(std::size_t last);
    bool happens(double share);

    Reactor& reactor_;
    const Http2Conduct conduct_;
    std::mt19937_64 numbers_;
    std::vector<Context> contexts_;
    std::atomic<bool> presentsOther_ = false;
    Socket listener_;
    std::uint16_t port_ = 0;
    std::atomic<std::size_t> connections_ = 0;
    std::atomic<std::size_t> faults_ = 0;
};

}  // namespace VanticRestKit::test
