#pragma once

/// \file
/// The errors of the transport: their domain and codes.

#include <cstdint>
#include <string_view>

namespace VanticRestKit {

/// The domain of every error that `URLSession` reports.
inline constexpr std::string_view NSURLErrorDomain = "NSURLErrorDomain";

/// What went wrong with a request, as the `code()` of an `Error` of the domain `NSURLErrorDomain`.
///
/// The error's user information holds the URL that failed, a description, and the underlying error if libcurl reported
/// one.
enum class URLErrorCode : std::int64_t {
    /// Any other cause.
    unknown = -1,
    /// The task was cancelled.
    cancelled = -999,
    /// The request cannot be sent: it has no URL or a URL without a host, its method is malformed or not supported, or
    /// the name or value of a header is malformed.
    badURL = -1000,
    /// No data was transferred for the request's `timeoutInterval`, or another time limit of the session was exceeded.
    timedOut = -1001,
    /// The scheme is neither http nor https.
    unsupportedURL = -1002,
    /// The host name could not be resolved.
    cannotFindHost = -1003,
    /// No connection to the host could be made.
    cannotConnectToHost = -1004,
    /// The connection was lost before the response was complete.
    networkConnectionLost = -1005,
    /// The load was redirected more often than `URLSessionLimits::maxRedirects`.
    httpTooManyRedirects = -1007,
    /// The request's cache policy allows only stored responses, and there is none.
    resourceUnavailable = -1008,
    /// The server violated the protocol.
    badServerResponse = -1011,
    /// The response redirects from https to http, which the session's redirect policy does not allow.
    appTransportSecurityRequiresSecureConnection = -1022,
    /// The content coding of the body is not supported.
    cannotDecodeRawData = -1015,
    /// The content coding of the body (gzip, deflate, br) is corrupt or truncated.
    cannotDecodeContentData = -1016,
    /// The response is not HTTP or contradicts itself.
    cannotParseResponse = -1017,
    /// The response exceeds a limit of the session or the available memory.
    dataLengthExceedsMaximum = -1103,
    /// Too many loads already wait for a connection to the origin; nothing was sent. See
    /// `URLSessionLimits::maxQueuedLoadsPerOrigin`. This code is the library's own, not the platform's.
    queuedLoadsExceedMaximum = -1105,
    /// TLS could not be set up, for a reason other than the certificate.
    secureConnectionFailed = -1200,
    /// The server's certificate is not trusted: it has expired, is for another host, is self-signed, or has an unknown
    /// root.
    serverCertificateUntrusted = -1202,
    /// The server's certificate is not valid yet.
    serverCertificateNotYetValid = -1204,
};

}  // namespace VanticRestKit
