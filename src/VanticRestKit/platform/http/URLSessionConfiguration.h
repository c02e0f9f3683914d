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

    /// The file to which the secrets of TLS connections are appended, so that a recording of the traffic can be read
    /// while something is debugged. Whoever reads it can read the traffic. It is created, for the user alone, with the
    /// first https request; if it cannot be opened, every https request fails with
    /// `URLErrorCode::secureConnectionFailed`. Empty: nothing is logged.
    std::optional<std::string> tlsKeyLogPath{};

    /// How many connections one host takes; at least 1.
    std::int64_t httpMaximumConnectionsPerHost = 6;

    /// The platform's default settings.
    static URLSessionConfiguration default_() { return {}; }
};

}  // namespace VanticRestKit
