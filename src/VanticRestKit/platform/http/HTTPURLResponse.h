#pragma once

/// \file
/// `HTTPURLResponse`: status and headers of an HTTP answer.

#include <VanticRestKit/platform/http/HTTPCacheStatus.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit {

/// The status and the headers of one HTTP answer. `URLSession` makes them; so may a transport of a host's
/// own.
class VRK_EXPORT HTTPURLResponse final : public URLResponse {
public:
    /// Header fields by name.
    using HeaderFields = std::map<std::string, std::string>;

    /// For services and tests of the host; the session makes its own.
    HTTPURLResponse(std::optional<URL> url, std::int64_t statusCode, HeaderFields headerFields = {},
                    HTTPCacheStatus cacheStatus = {});
    ~HTTPURLResponse() override;

    /// The status, such as 200.
    std::int64_t statusCode() const noexcept { return statusCode_; }

    /// The value of a header, its name compared without case. Empty where there is none.
    std::optional<std::string> value(std::string_view forHTTPHeaderField) const;

    /// All headers, each name in the spelling that came first. The values of a name that came more than once
    /// are joined with ", ".
    const HeaderFields& allHeaderFields() const noexcept { return headerFields_; }

    /// Where the answer came from: the server, or the session's cache. Of a transport without a cache: the server.
    HTTPCacheStatus::Source source() const noexcept { return cacheStatus_.source; }
    /// What the session's cache did for the answer.
    const HTTPCacheStatus& cacheStatus() const noexcept { return cacheStatus_; }
    /// The value that the field Cache-Status (RFC 9211) has with the session's cache in it: what the server and the
    /// caches on the way said, and last what this cache says. Empty if none of them said anything.
    std::optional<std::string> cacheStatusValue() const;

    const HTTPURLResponse* asHTTP() const noexcept override { return this; }

private:
    std::int64_t statusCode_;
    HeaderFields headerFields_;
    HTTPCacheStatus cacheStatus_;
};

}  // namespace VanticRestKit
