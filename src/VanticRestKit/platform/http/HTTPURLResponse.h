#pragma once

/// \file
/// `HTTPURLResponse`: the status and headers of an HTTP response.

#include <VanticRestKit/platform/http/HTTPCacheStatus.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit {

/// The status and the headers of one HTTP response. Made by `URLSession`, or by a host's own transport.
class VRK_EXPORT HTTPURLResponse final : public URLResponse {
public:
    /// Header fields by name.
    using HeaderFields = std::map<std::string, std::string>;

    /// For a host's own services and tests; a session makes its own.
    HTTPURLResponse(std::optional<URL> url, std::int64_t statusCode, HeaderFields headerFields = {},
                    HTTPCacheStatus cacheStatus = {});
    ~HTTPURLResponse() override;

    /// The status code, such as 200.
    std::int64_t statusCode() const noexcept { return statusCode_; }

    /// The value of a header; names compare case-insensitively. Empty if there is none.
    std::optional<std::string> value(std::string_view forHTTPHeaderField) const;

    /// All headers; each name is spelled as it was first received. The values of a repeated name are joined with ", ".
    const HeaderFields& allHeaderFields() const noexcept { return headerFields_; }

    /// Where the response came from: the server or the session's cache. With a transport that has no cache: the server.
    HTTPCacheStatus::Source source() const noexcept { return cacheStatus_.source; }
    /// What the session's cache did for the response.
    const HTTPCacheStatus& cacheStatus() const noexcept { return cacheStatus_; }
    /// The value of the field Cache-Status (RFC 9211) including the session's cache: the members received from the
    /// server and from intermediate caches, followed by this cache's. Empty if there are none.
    std::optional<std::string> cacheStatusValue() const;

    const HTTPURLResponse* asHTTP() const noexcept override { return this; }

private:
    std::int64_t statusCode_;
    HeaderFields headerFields_;
    HTTPCacheStatus cacheStatus_;
};

}  // namespace VanticRestKit
