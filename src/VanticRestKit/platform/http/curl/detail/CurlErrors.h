#pragma once

/// \file
/// Maps libcurl's errors to the platform's.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/detail/LimitFaults.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>

#include <curl/curl.h>

#include <string_view>

namespace VanticRestKit::detail {

/// How libcurl ended a request, and what else is known about it.
struct CurlFailure {
    CURLcode code;
    /// libcurl's own message; may be empty.
    std::string_view text{};
    /// The TLS library's result of verifying the certificate; 0 if there is none.
    long verifyResult = 0;
    /// Whether the request was sent, but the headers of its response are not complete.
    bool isInsideHead = false;
    /// Why a socket could not be opened, as an `errno`; 0 if none failed.
    int socketError = 0;
    /// Whether the request was sent again because an HTTP/2 connection had ended.
    bool wentUnansweredBefore = false;
    /// The limits that faults of headers mention.
    const URLSessionLimits& limits = defaultLimits;
};

/// Whether libcurl reports that an HTTP/2 connection has ended, after a GOAWAY or because of a protocol error.
bool isEndOfHTTP2Connection(CURLcode code, std::string_view text);

/// The platform's fault for `failure`.
TransportFault faultFor(const CurlFailure& failure);

/// The platform's code for libcurl's `code` with its message `text` and the TLS library's `verifyResult`.
URLErrorCode urlErrorCodeFor(CURLcode code, std::string_view text, long verifyResult);

/// libcurl's own error: domain "libcurl", its code, its message, and the result of verifying the certificate under
/// "SSLVerifyResult" if that is not 0.
Error underlyingError(CURLcode code, std::string_view text, long verifyResult);

}  // namespace VanticRestKit::detail
