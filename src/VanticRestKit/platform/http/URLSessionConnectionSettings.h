#pragma once

/// \file
/// How a session connects: proxy, TLS, addresses and HTTP versions.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A proxy for requests. The proxy sees http requests in full; https requests use a tunnel, so it sees only the host
/// name.
struct URLSessionProxy {
    /// Its address, "http://host:port" or "https://host:port". The certificate of an https proxy is verified like that
    /// of a server. With any other address every request fails with `URLErrorCode::badURL`.
    std::string url;
    /// The user name, sent only to the proxy, as Basic credentials.
    std::optional<std::string> user{};
    /// The password; empty for none.
    std::optional<std::string> password{};
    /// Hosts that are contacted directly: "example.org" is that host and all its subdomains, "192.0.2.1" that address,
    /// "*" every host. Case-insensitive.
    std::vector<std::string> exceptions{};
};

/// The certificate that a session presents to servers that ask for one. All parts are PEM.
struct URLSessionClientCertificate {
    /// The certificate, followed by the intermediate certificates.
    std::string certificate;
    /// The private key of the certificate.
    std::string privateKey;
    /// The passphrase of the private key; empty if it is not encrypted.
    std::optional<std::string> passphrase{};
};

/// Fixed addresses of one host and port, used instead of looking up the name.
struct URLSessionResolverOverride {
    /// The host name.
    std::string host;
    /// The port; connections to other ports look up the name.
    std::uint16_t port = 0;
    /// IPv4 or IPv6 addresses without brackets, tried in this order. At least one.
    std::vector<std::string> addresses;
};

/// The oldest TLS version that a session accepts.
enum class TLSProtocolVersion { TLSv12, TLSv13 };

/// Which HTTP versions a session uses.
enum class HTTPVersionPreference {
    /// HTTP/2 over TLS if both the server and libcurl support it, otherwise HTTP/1.1.
    http2OverTLS,
    /// Only HTTP/1.1.
    http1Only,
};

}  // namespace VanticRestKit
