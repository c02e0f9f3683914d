#pragma once

/// \file
/// How a session connects: proxy, TLS, addresses and versions of HTTP.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A proxy that requests go through. http requests are handed to it whole; https requests go through a tunnel, so that
/// it sees the host's name and no more.
struct URLSessionProxy {
    /// Its address, "http://host:port" or "https://host:port". The certificate of one of https is verified like that
    /// of a server. Anything else fails every request with `URLErrorCode::badURL`.
    std::string url;
    /// Sent to the proxy alone, as Basic credentials.
    std::optional<std::string> user{};
    /// The password; empty for none.
    std::optional<std::string> password{};
    /// Hosts to which requests go directly: "example.org" is that host and every one below it, "192.0.2.1" that
    /// address, "*" every host. Compared without case.
    std::vector<std::string> exceptions{};
};

/// The certificate by which a session proves to a server who it is, if the server asks. All of it is PEM.
struct URLSessionClientCertificate {
    /// The certificate, followed by those between it and the root.
    std::string certificate;
    /// The private key of the certificate.
    std::string privateKey;
    /// What the private key is encrypted with; empty if it is not.
    std::optional<std::string> passphrase{};
};

/// The addresses of one host and port, used in place of looking the name up.
struct URLSessionResolverOverride {
    /// The name that is not looked up.
    std::string host;
    /// Connections to other ports look the name up.
    std::uint16_t port = 0;
    /// Tried in this order, each an IPv4 or IPv6 address without brackets. At least one.
    std::vector<std::string> addresses;
};

/// The oldest version of TLS that a session speaks.
enum class TLSProtocolVersion { TLSv12, TLSv13 };

/// Which versions of HTTP a session speaks.
enum class HTTPVersionPreference {
    /// HTTP/2 over TLS if the server and the libcurl of the process have it, else HTTP/1.1.
    http2OverTLS,
    /// HTTP/1.1 alone.
    http1Only,
};

}  // namespace VanticRestKit
