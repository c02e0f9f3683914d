#pragma once

/// \file
/// `PlainOrigin`: an HTTP/1.1 server that handles many requests on one thread.

#include "Reactor.h"
#include "Sockets.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// The target of request number `id`. This server and `Http2Origin` answer it with `bodyFor(target)`.
///
/// Its tildes are longer in the Huffman code of HPACK than as plain text, so a client sends the target uncoded and the
/// server can find it without decoding the headers.
std::string targetFor(std::size_t size, std::uint64_t id);

/// The response body for `target`: the target itself, padded to the size that it contains.
std::string bodyFor(std::string_view target);

/// Speaks HTTP/1.1 without TLS. For the reactor's thread.
class PlainOrigin {
public:
    /// Closes a connection after `closesAfter` responses on average, announced by a Connection header.
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
