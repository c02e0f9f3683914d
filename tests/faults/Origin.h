#pragma once

/// \file
/// `Origin`: the servers of the trials, in a process of their own, so that nothing of theirs is counted.

#include <support/Sockets.h>

#include <sys/types.h>
#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// Where the servers are.
struct Addresses {
    std::uint16_t plain = 0;
    std::uint16_t secure = 0;
    /// Of a server of HTTP/2, which answers as `PlainOrigin` does.
    std::uint16_t http2 = 0;
    /// The certificate to be trusted.
    std::string authority{};
};

/// The header of which the document of `videoDocument` tells, and which every request for it must have.
inline constexpr const char* probeHeader = "X-Probe";

/// What the plain and the secure server answer to a request with these headers.
std::string videoDocument(std::string_view probe, std::string_view cookie);

/// Runs the servers for as long as it lives. To be made before the program has a second thread.
///
/// The plain and the secure server answer a path that begins with /v2/video with a cookie and a redirect to the document
/// below /document, and a path that begins with /v2/kept with a document that may be kept; the first request for a path
/// that begins with /v2/later on each connection is answered with 503.
class Origin {
public:
    Origin();
    ~Origin();
    Origin(const Origin&) = delete;
    Origin& operator=(const Origin&) = delete;

    const Addresses& addresses() const noexcept { return addresses_; }
    /// Whether the servers have started.
    bool isRunning() const noexcept { return addresses_.http2 != 0; }

private:
    Socket control_;
    pid_t process_ = -1;
    Addresses addresses_;
};

}  // namespace VanticRestKit::test
