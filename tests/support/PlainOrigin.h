#pragma once

/// \file
/// `PlainOrigin`: a server of HTTP/1.1 that answers many requests from one thread.

#include "Reactor.h"
#include "Sockets.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// The target of the request with the number `id`. This server and `Http2Origin` answer it with `bodyFor` it.
///
/// Its tildes are longer in the Huffman code of HPACK than as they are, so that a client sends the target as it is and
/// the server finds it without decoding headers.
std::string targetFor(std::size_t size, std::uint64_t id);

/// The body that is the answer to `target`: the target itself, filled up to the size that it names.
std::string bodyFor(std::string_view target);

/// Speaks HTTP/1.1 without TLS. For the thread of the reactor.
class PlainOrigin {
public:
    /// It closes a connection after some of the answers, on average after `closesAfter`, as it says in their headers.
    PlainOrigin(Reactor& reactor, std::size_t closesAfter, std::uint64_t seed,
                Loopback loopback = Loopback::v4);
    ~PlainOrigin();
    PlainOrigin(const PlainOrigin&) = delete;
    PlainOrigin& operator=(const PlainOrigin&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    std::size_t requestCount() const noexcept { return requests_; }

private:
    class Connection;

    Reactor& reactor_;
    const std::size_t closesAfter_;
    std::mt19937_64 numbers_;
    Socket listener_;
    std::uint16_t port_ = 0;
    std::atomic<std::size_t> requests_ = 0;
};

}  // namespace VanticRestKit::test
