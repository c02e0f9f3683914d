#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <utility>

namespace VanticRestKit::detail {

std::string_view urlErrorDescription(URLErrorCode code) {
    switch (code) {
        case URLErrorCode::unknown: return "unknown error";
        case URLErrorCode::cancelled: return "cancelled";
        case URLErrorCode::badURL: return "bad URL";
        case URLErrorCode::timedOut: return "The request timed out.";
        case URLErrorCode::unsupportedURL: return "unsupported URL";
        case URLErrorCode::cannotFindHost: return "A server with the specified hostname could not be found.";
        case URLErrorCode::cannotConnectToHost: return "Could not connect to the server.";
        case URLErrorCode::networkConnectionLost: return "The network connection was lost.";
        case URLErrorCode::httpTooManyRedirects: return "too many HTTP redirects";
        case URLErrorCode::resourceUnavailable: return "resource unavailable";
        case URLErrorCode::queuedLoadsExceedMaximum: return "too many requests are waiting";
        case URLErrorCode::badServerResponse: return "There was a bad response from the server.";
        case URLErrorCode::cannotDecodeRawData: return "cannot decode raw data";
        case URLErrorCode::cannotDecodeContentData: return "cannot decode content data";
        case URLErrorCode::cannotParseResponse: return "cannot parse response";
        case URLErrorCode::appTransportSecurityRequiresSecureConnection:
            return "A secure connection is required.";
        case URLErrorCode::dataLengthExceedsMaximum: return "resource exceeds maximum size";
        case URLErrorCode::secureConnectionFailed:
            return "An SSL error has occurred and a secure connection to the server cannot be made.";
        case URLErrorCode::serverCertificateUntrusted: return "The certificate for this server is invalid.";
        case URLErrorCode::serverCertificateNotYetValid:
            return "The certificate for this server is not yet valid.";
    }
    return "unknown error";
}

Error makeURLError(const TransportFault& fault, const std::optional<URL>& url,
                   const std::optional<Error>& underlying) {
    Dictionary userInfo;
    userInfo.emplace(NSLocalizedDescriptionKey,
                     fault.description.empty() ? urlErrorDescription(fault.code) : fault.description);
    if (url) userInfo.emplace(NSURLErrorFailingURLStringErrorKey, url->absoluteString());
    if (underlying) userInfo.emplace(NSUnderlyingErrorKey, *underlying);
    if (!fault.reason.empty()) userInfo.emplace(NSDebugDescriptionKey, fault.reason);
    return NSError(std::string(NSURLErrorDomain), static_cast<std::int64_t>(fault.code), std::move(userInfo));
}

}  // namespace VanticRestKit::detail
