#pragma once

/// \file
/// What libcurl's errors are to the platform.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/detail/LimitFaults.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>

#include <curl/curl.h>

#include <string_view>

namespace VanticRestKit::detail {

/// How libcurl ended a request, and what of it is known besides.
struct CurlFailure {
    CURLcode code;
    /// libcurl's own message; may be empty.
    std::string_view text{};
    /// The TLS library's result of verifying the certificate; 0 if there is none.
    long verifyResult = 0;
    /// Whether the request was sent and the head of its answer is not complete.
    bool isInsideHead = false;
    /// Why a socket could not be opened, as an `errno`; 0 if none failed.
    int socketError = 0;
    /// Whether the request went out again because a connection of HTTP/2 had ended.
    bool wasLeftOutBefore = false;
    /// The limits that a fault of a head names.
    const URLSessionLimits& limits = defaultLimits;
};

/// Whether libcurl says that a connection of HTTP/2 has ended: after a GOAWAY, or because of a fault in what came.
bool tellsOfEndOfHTTP2(CURLcode code, std::string_view text);

/// The fault that `failure` is to the platform.
TransportFault faultFor(const CurlFailure& failure);

/// The platform's code for libcurl's `code`, which came with `text` and the TLS library's `verifyResult`.
URLErrorCode urlErrorCodeFor(CURLcode code, std::string_view text, long verifyResult);

/// libcurl's error as it is: domain "libcurl", its code, its text, and the result of verifying the
/// certificate under "SSLVerifyResult" where that is not 0.
Error underlyingError(CURLcode code, std::string_view text, long verifyResult);

}  // namespace VanticRestKit::detail
