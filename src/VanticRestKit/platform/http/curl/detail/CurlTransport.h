#pragma once

/// \file
/// The transport based on libcurl.

#include <VanticRestKit/platform/http/detail/Transport.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Settings for tests only.
struct TransportSeams {
    /// Addresses of hosts, in libcurl's format "host:port:address,address".
    std::vector<std::string> addresses{};
};

/// Makes a transport with its own I/O thread, which starts with the first transfer, and its own connections.
std::shared_ptr<Transport> makeCurlTransport(const URLSessionConfiguration& configuration,
                                             TransportSeams seams = {});

}  // namespace VanticRestKit::detail
