#pragma once

/// \file
/// `URLSessionConfiguration`: the settings of a `URLSession`.

#include <VanticRestKit/platform/http/cache/URLCache.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSessionConnectionSettings.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>
#include <VanticRestKit/platform/http/URLSessionRedirectPolicy.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Settings that a session reads once, when it is made. No environment variable and no file changes them.
struct URLSessionConfiguration {
    /// The cache policy of requests that have none of their own, which is those with `useProtocolCachePolicy`.
    URLRequestCachePolicy requestCachePolicy = URLRequestCachePolicy::useProtocolCachePolicy;

    /// Where answers are kept. The session keeps it alive. Null: nothing is kept, and requests that take only what is
    /// kept fail with `URLErrorCode::resourceUnavailable`.
    std::shared_ptr<URLCache> urlCache = URLCache::shared();

    /// How long nothing may move, for requests whose own `timeoutInterval` is not above zero.
    std::chrono::duration<double> timeoutIntervalForRequest{60};

    /// How long a load may take as a whole, from `resume()` to its end, the time in the session's queue and redirects
    /// included; then it fails with `URLErrorCode::timedOut`. Seven days unless it is above zero. A host should set what
    /// its users would wait for, such as five minutes: a server that sends a byte now and then runs into no other
    /// time-out, and keeps one of the connections of its origin.
    std::chrono::duration<double> timeoutIntervalForResource{7 * 24 * 60 * 60};

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

    /// Headers of every request that has none of the same name. They count as the request's own: one that cannot stand
    /// in a request fails it with `URLErrorCode::badURL`.
    std::map<std::string, std::string> httpAdditionalHeaders{};

    /// The `User-Agent` of requests that have none. Empty: "VanticRestKit/" and the library's version.
    std::optional<std::string> userAgent{};

    /// Where requests go through. Empty: directly to their servers.
    std::optional<URLSessionProxy> proxy{};

    /// TLS 1.2 is the oldest that is spoken at all. A server that has none as new fails a request with
    /// `URLErrorCode::secureConnectionFailed`.
    TLSProtocolVersion tlsMinimumSupportedProtocolVersion = TLSProtocolVersion::TLSv12;

    /// Certificates (PEM) of roots to be trusted beside the system's or those of `caBundlePath`. If there is none in
    /// the text, every https request fails with `URLErrorCode::secureConnectionFailed`.
    std::optional<std::string> additionalCACertificates{};

    /// The certificate for servers that ask for one. None by default; one that cannot be used fails every https request
    /// with `URLErrorCode::secureConnectionFailed`.
    std::optional<URLSessionClientCertificate> clientCertificate{};

    /// Addresses of hosts that are not to be looked up: for tests, and for networks without names.
    std::vector<URLSessionResolverOverride> resolverOverrides{};

    /// How long the addresses of a host are kept, in seconds. 0: each connection looks its host up.
    std::chrono::seconds dnsCacheTime{60};

    /// HTTP/2 over TLS by default.
    HTTPVersionPreference httpVersionPreference = HTTPVersionPreference::http2OverTLS;

    /// How long a connection may be idle and still be used for another request. At least a second.
    std::chrono::seconds idleConnectionLifetime{118};

    /// Whether a request whose host cannot be reached (no address, no connection) waits and tries again in place of
    /// failing at once: after 0.1 s, then at growing intervals of up to 6.4 s, without sending anything twice.
    bool waitsForConnectivity = false;
    /// How long such a request waits, from its first attempt on, before it fails as it would have at once.
    std::chrono::duration<double> connectivityTimeout{60};

    /// Which redirects are followed. By default all of them but those from https to http.
    URLSessionRedirectPolicy redirectPolicy{};

    /// The cookies that the session's answers set and its requests get. Several sessions may have one. Empty: a session
    /// makes one of its own, in memory, which its `configuration()` has; so no session sees another one's cookies by
    /// default.
    std::shared_ptr<HTTPCookieStorage> httpCookieStorage{};

    /// Whether requests get cookies of the storage. If not, cookies of answers are stored all the same.
    bool httpShouldSetCookies = true;

    /// Which cookies of this session's answers are stored; the policy of the storage must accept them too. `never` with
    /// `httpShouldSetCookies` false is a session without cookies.
    HTTPCookieAcceptPolicy httpCookieAcceptPolicy = HTTPCookieAcceptPolicy::always;

    /// How much a server can make the session take.
    URLSessionLimits limits{};

    /// The platform's default settings.
    static URLSessionConfiguration default_() { return {}; }
};

}  // namespace VanticRestKit
