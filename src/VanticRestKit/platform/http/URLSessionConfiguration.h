#pragma once

/// \file
/// `URLSessionConfiguration`: the settings of a `URLSession`.

#include <VanticRestKit/platform/http/URLRequest.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Settings that a session reads once, when it is made. No environment variable and no file changes them.
struct URLSessionConfiguration {
    /// The cache policy of requests that have none of their own.
    URLRequestCachePolicy requestCachePolicy = URLRequestCachePolicy::useProtocolCachePolicy;

    /// How long nothing may move, for requests whose own `timeoutInterval` is not above zero.
    std::chrono::duration<double> timeoutIntervalForRequest{60};

    /// The file with the certificates (PEM) of the roots to be trusted, in place of the system's. Empty: the
    /// system's. A file that cannot be read fails every https request with
    /// `URLErrorCode::secureConnectionFailed`.
    std::optional<std::string> caBundlePath{};

    /// How many connections one host takes; at least 1.
    std::int64_t httpMaximumConnectionsPerHost = 6;

    /// The platform's default settings.
    static URLSessionConfiguration default_() { return {}; }
};

}  // namespace VanticRestKit
