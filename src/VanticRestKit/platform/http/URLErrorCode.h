#pragma once

/// \file
/// The errors of the transport: their domain and their named codes.

#include <cstdint>
#include <string_view>

namespace VanticRestKit {

/// The domain of every error that `URLSession` reports.
inline constexpr std::string_view NSURLErrorDomain = "NSURLErrorDomain";

/// What went wrong with a request, as the `code()` of an `Error` of the domain `NSURLErrorDomain`.
///
/// Such an error's user information holds the URL that failed, a description, and, where the transport below
/// gave a reason of its own, that reason as the underlying error.
enum class URLErrorCode : std::int64_t {
    /// The cause is none of the others.
    unknown = -1,
    /// The task was cancelled.
    cancelled = -999,
    /// The request cannot be sent as it is: it has no URL or one without a host, a method that is no token or
    /// that a session does not send, or a header whose name or value is malformed.
    badURL = -1000,
    /// Nothing moved for as long as the request's `timeoutInterval`.
    timedOut = -1001,
    /// The scheme is neither http nor https.
    unsupportedURL = -1002,
    /// No address is known for the host.
    cannotFindHost = -1003,
    /// No connection to the host could be made.
    cannotConnectToHost = -1004,
    /// The connection was lost before the answer was whole.
    networkConnectionLost = -1005,
    /// More redirects than the session's `URLSessionLimits::maxRedirects`.
    httpTooManyRedirects = -1007,
    /// The request's policy allows only stored answers, and there is none.
    resourceUnavailable = -1008,
    /// The server broke the rules of the protocol.
    badServerResponse = -1011,
    /// The answer redirects from https to http, which the session's redirect policy does not allow.
    appTransportSecurityRequiresSecureConnection = -1022,
    /// The body is coded in a way that is not known here.
    cannotDecodeRawData = -1015,
    /// The body's coding (gzip, deflate, br) is broken or ends too early.
    cannotDecodeContentData = -1016,
    /// The answer is no HTTP, or says two things at once.
    cannotParseResponse = -1017,
    /// The answer is larger than a limit of the session, or than the memory that is left.
    dataLengthExceedsMaximum = -1103,
    /// As many loads as the session allows wait for the origin already; nothing was sent. See
    /// `URLSessionLimits::maxQueuedLoadsPerOrigin`. This code is not the platform's.
    queuedLoadsExceedMaximum = -1105,
    /// TLS could not be set up, for a reason other than the certificate.
    secureConnectionFailed = -1200,
    /// The server's certificate is not to be trusted: expired, of another host, self-signed, of an unknown
    /// root.
    serverCertificateUntrusted = -1202,
    /// The server's certificate is not valid yet.
    serverCertificateNotYetValid = -1204,
};

}  // namespace VanticRestKit
