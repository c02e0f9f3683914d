#pragma once

/// \file
/// The transport over libcurl.

#include <VanticRestKit/platform/http/detail/Transport.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// What only tests set.
struct TransportSeams {
    /// Addresses of hosts, in libcurl's form "host:port:address,address".
    std::vector<std::string> addresses{};
};

/// A transport with an I/O thread of its own, which starts with the first transfer, and with connections that
/// only the transfers of this transport share.
std::shared_ptr<Transport> makeCurlTransport(const URLSessionConfiguration& configuration,
                                             TransportSeams seams = {});

}  // namespace VanticRestKit::detail
