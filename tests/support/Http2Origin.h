#pragma once

/// \file
/// `Http2Origin`: a server of HTTP/2 that answers many requests from one thread, and badly if asked to.

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

/// How a server of HTTP/2 treats its requests. Shares are between 0 and 1, each of all requests.
struct Http2Conduct {
    /// An answer waits for a random time up to this, so that answers come in another order than requests.
    std::chrono::milliseconds longestWait{0};
    /// The stream is reset before the answer, after the head, or inside the body.
    double resets = 0;
    /// The stream is refused: the request was not worked on.
    double refusals = 0;
    /// The server says that it will go away; it answers what came until then, and nothing after that.
    double goAways = 0;
    /// The same, but it has not worked on the last request either and says so.
    double goAwaysWithoutLast = 0;
    /// Which share of the connections has the second certificate in place of the first.
    double otherCertificates = 0;
    std::uint32_t maxStreams = 100;
};

/// Speaks HTTP/2 over TLS. For the thread of the reactor.
class Http2Origin {
public:
    /// `other` is for the connections that get another certificate; null if there are none.
    Http2Origin(Reactor& reactor, const Http2Conduct& conduct, const Identity& identity,
                const Identity* other, std::uint64_t seed, Loopback loopback = Loopback::v4);
    ~Http2Origin();
    Http2Origin(const Http2Origin&) = delete;
    Http2Origin& operator=(const Http2Origin&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    std::size_t connectionCount() const noexcept { return connections_; }
    std::size_t faultCount() const noexcept { return faults_; }
    /// For any thread: from now on every connection gets the other certificate, or the first one again.
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
