#pragma once

/// \file
/// `HeaderLines`: the header lines of a request in libcurl's format.

#include <VanticRestKit/platform/http/URLRequest.h>

#include <curl/curl.h>

#include <map>
#include <memory>
#include <string>

namespace VanticRestKit::detail {

/// A shared list of header lines.
using HeaderLines = std::shared_ptr<curl_slist>;

/// The header lines of `request`: its own headers, and the session's defaults for those that it lacks and libcurl does
/// not add itself. `cookies` is the value of the Cookie header; none is added if it is empty. Null if libcurl has no
/// memory for one of the lines, since the request would be a different one without it.
HeaderLines headerLinesOf(const URLRequest& request, const std::string& cookies = {});

/// Caches the lines of the last request, since most requests have the same ones. For one thread.
class HeaderLinesMemo {
public:
    HeaderLines of(const URLRequest& request, const std::string& cookies);

private:
    std::map<std::string, std::string> headers_;
    std::string cookies_;
    HeaderLines lines_;
};

}  // namespace VanticRestKit::detail
