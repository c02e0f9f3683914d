#pragma once

/// \file
/// `Nghttpx`: a server for HTTP/2 over TLS, in front of another server.

#include "Certificates.h"

#include <sys/types.h>
#include <cstdint>

namespace VanticRestKit::test {

/// Runs nghttpx on a port of 127.0.0.1, in front of the HTTP/1.1 server on port `backend`, until this object is
/// destroyed. Requests received over HTTP/2 have "2 nghttpx" in their Via header.
class Nghttpx {
public:
    Nghttpx(std::uint16_t backend, const Identity& identity, int streamsPerConnection = 100);
    ~Nghttpx();
    Nghttpx(const Nghttpx&) = delete;
    Nghttpx& operator=(const Nghttpx&) = delete;

    /// Whether it answers. A test cannot continue otherwise.
    bool isRunning() const noexcept { return process_ > 0; }
    std::uint16_t port() const noexcept { return port_; }

    /// Kills it without notifying its clients.
    void kill();

private:
    bool waitUntilItAnswers() const;

    TemporaryFile certificate_;
    TemporaryFile key_;
    TemporaryFile log_;
    std::uint16_t port_ = 0;
    pid_t process_ = -1;
};

}  // namespace VanticRestKit::test
