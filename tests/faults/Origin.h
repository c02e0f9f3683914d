#pragma once

/// \file
/// `Origin`: the servers of the trials. They run in a separate process, so that their calls and resources are not
/// counted.

#include <support/Sockets.h>

#include <sys/types.h>
#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// The ports and the certificate of the servers.
struct Addresses {
    std::uint16_t plain = 0;
    std::uint16_t secure = 0;
    /// An HTTP/2 server, which answers as `PlainOrigin` does.
    std::uint16_t http2 = 0;
    /// The certificate that clients must trust.
    std::string authority{};
};

/// A header that every request for the document must have. `videoDocument` contains its value.
inline constexpr const char* probeHeader = "X-Probe";

/// The document that the plain and the secure server send for a request with these headers.
std::string videoDocument(std::string_view probe, std::string_view cookie);

/// Runs the servers until it is destroyed. Must be created before the program starts a second thread, because it forks.
///
/// The plain and the secure server answer paths below /v2/video with a cookie and a redirect to /document, and paths
/// below /v2/kept with a document that may be cached. They answer the first request for a path below /v2/later on each
/// connection with 503.
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
