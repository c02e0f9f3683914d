#pragma once

/// \file
/// `AskedRequest`: a request that a scripted service has received.

#include <VanticRestKit/platform/http/URLRequest.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::Testing {

/// One request as the library built it.
struct AskedRequest {
    /// The request as the library built it.
    URLRequest request;
    /// Whether it was cancelled before its answer was delivered.
    bool wasCancelled = false;

    /// The method.
    std::string method() const;
    /// The path as sent, such as "/v2/video/ZW1".
    std::string path() const;
    /// The query as sent, without the "?"; empty if there is none.
    std::string query() const;
    /// The value of a header; case-insensitive.
    std::optional<std::string> header(std::string_view name) const { return request.value(name); }
    /// The body; an empty string if there is none.
    std::string body() const;

    /// Method, path and query: "GET /v2/video/ZW1?embed=series".
    std::string line() const;
};

}  // namespace VanticRestKit::Testing
