#pragma once

/// \file
/// `HeaderLines`: the header lines of a request as libcurl takes them.

#include <VanticRestKit/platform/http/URLRequest.h>

#include <curl/curl.h>

#include <map>
#include <memory>
#include <string>

namespace VanticRestKit::detail {

/// A list of header lines; the last one who holds it frees it.
using HeaderLines = std::shared_ptr<curl_slist>;

/// The header lines of `request`: its own, and those of the session of which it has none and which libcurl
/// does not send by itself. `cookies` is the value of a Cookie header, which is left out if it is empty.
HeaderLines headerLinesOf(const URLRequest& request, const std::string& cookies = {});

/// Remembers the lines of the last request: most of those that follow have the same. For one thread.
class HeaderLinesMemo {
public:
    HeaderLines of(const URLRequest& request, const std::string& cookies);

private:
    std::map<std::string, std::string> headers_;
    std::string cookies_;
    HeaderLines lines_;
};

}  // namespace VanticRestKit::detail
