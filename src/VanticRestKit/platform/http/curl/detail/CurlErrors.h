#pragma once

/// \file
/// What libcurl's errors are to the platform.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <curl/curl.h>

#include <string_view>

namespace VanticRestKit::detail {

/// The platform's code for libcurl's `code`, which came with `text` and the TLS library's `verifyResult`.
URLErrorCode urlErrorCodeFor(CURLcode code, std::string_view text, long verifyResult);

/// libcurl's error as it is: domain "libcurl", its code, its text, and the result of verifying the
/// certificate under "SSLVerifyResult" where that is not 0.
Error underlyingError(CURLcode code, std::string_view text, long verifyResult);

}  // namespace VanticRestKit::detail
