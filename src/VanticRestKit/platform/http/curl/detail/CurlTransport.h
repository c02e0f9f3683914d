#pragma once

/// \file
/// The transport over libcurl.

#include <VanticRestKit/platform/http/detail/Transport.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <memory>

namespace VanticRestKit::detail {

/// A transport with an I/O thread of its own, which starts with the first transfer, and with connections that
/// only the transfers of this transport share.
std::shared_ptr<Transport> makeCurlTransport(const URLSessionConfiguration& configuration);

}  // namespace VanticRestKit::detail
