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

/// Settings that a session reads once, when it is made. Environment variables and files do not affect them.
struct URLSessionConfiguration {
    /// The cache policy of requests with `useProtocolCachePolicy`.
    URLRequestCachePolicy requestCachePolicy = URLRequestCachePolicy::useProtocolCachePolicy;

    /// The cache, which the session keeps alive. Null: nothing is stored, and requests that accept only stored
    /// responses fail with `URLErrorCode::resourceUnavailable`.
    std::shared_ptr<URLCache> urlCache = URLCache::shared();

    /// The idle time-out for requests whose own `timeoutInterval` is not above zero.
    std::chrono::duration<double> timeoutIntervalForRequest{60};

    /// How long a load may take in total, from `resume()` to its end, including queueing and redirects; then it fails
    /// with `URLErrorCode::timedOut`. If not above zero, seven days. Set this to how long users would wait, such as
    /// five minutes: a server that sends a byte now and then triggers no other time-out, and occupies one of its
    /// origin's connections.
    std::chrono::duration<double> timeoutIntervalForResource{7 * 24 * 60 * 60};

    /// The file of the trusted root certificates (PEM), which replace the system's. Empty: the system's are used. If
    /// the file cannot be read, every https request fails with `URLErrorCode::secureConnectionFailed`.
    std::optional<std::string> caBundlePath{};

    /// The file to which the secrets of TLS connections are appended, for decrypting recorded traffic while debugging.
    /// Anyone who can read the file can decrypt the traffic. It is created with the first https request, readable only
    /// by the user; if it cannot be opened, every https request fails with `URLErrorCode::secureConnectionFailed`.
    /// Empty: nothing is logged.
    std::optional<std::string> tlsKeyLogPath{};

    /// The maximum number of connections per host; at least 1.
    std::int64_t httpMaximumConnectionsPerHost = 6;

    /// Headers that are added to every request without a header of the same name. If one is malformed, requests fail
    /// with `URLErrorCode::badURL`.
    std::map<std::string, std::string> httpAdditionalHeaders{};

    /// The `User-Agent` of requests without one. Empty: "VanticRestKit/" and the library's version.
    std::optional<std::string> userAgent{};

    /// The proxy for requests. Empty: requests go directly to their servers.
    std::optional<URLSessionProxy> proxy{};

    /// The minimum TLS version; TLS 1.2 is the oldest that is supported. A request to a server with only older versions
    /// fails with `URLErrorCode::secureConnectionFailed`.
    TLSProtocolVersion tlsMinimumSupportedProtocolVersion = TLSProtocolVersion::TLSv12;

    /// Trusted root certificates (PEM), in addition to the system's or those of `caBundlePath`. If the string contains
    /// no certificate, every https request fails with `URLErrorCode::secureConnectionFailed`.
    std::optional<std::string> additionalCACertificates{};

    /// The client certificate for servers that ask for one; none by default. If it cannot be used, every https request
    /// fails with `URLErrorCode::secureConnectionFailed`.
    std::optional<URLSessionClientCertificate> clientCertificate{};

    /// Fixed addresses of hosts, which are not looked up: for tests, and for networks without DNS.
    std::vector<URLSessionResolverOverride> resolverOverrides{};

    /// How long the addresses of a host are cached, in seconds. 0: each connection looks up its host.
    std::chrono::seconds dnsCacheTime{60};

    /// The versions of HTTP to use; HTTP/2 over TLS by default.
    HTTPVersionPreference httpVersionPreference = HTTPVersionPreference::http2OverTLS;

    /// How long an idle connection can be reused for another request. At least one second.
    std::chrono::seconds idleConnectionLifetime{118};

    /// Whether a request whose host cannot be reached (no address, no connection) waits and retries instead of failing
    /// at once: after 0.1 s, then at increasing intervals of up to 6.4 s. Nothing is sent twice.
    bool waitsForConnectivity = false;
    /// How long such a request is retried, from its first attempt on, before it fails with the error of its last
    /// attempt.
    std::chrono::duration<double> connectivityTimeout{60};

    /// Which redirects are followed. By default all except those from https to http.
    URLSessionRedirectPolicy redirectPolicy{};

    /// The cookie storage, which several sessions may share. Empty: the session makes its own in memory, available from
    /// its `configuration()`; so by default no session sees the cookies of another.
    std::shared_ptr<HTTPCookieStorage> httpCookieStorage{};

    /// Whether cookies of the storage are sent with requests. Cookies of responses are stored either way.
    bool httpShouldSetCookies = true;

    /// Which cookies of this session's responses are stored; the policy of the storage must accept them too. With
    /// `never` and `httpShouldSetCookies` false, a session uses no cookies.
    HTTPCookieAcceptPolicy httpCookieAcceptPolicy = HTTPCookieAcceptPolicy::always;

    /// Limits on what servers can send.
    URLSessionLimits limits{};

    /// The platform's default settings.
    static URLSessionConfiguration default_() { return {}; }
};

}  // namespace VanticRestKit
