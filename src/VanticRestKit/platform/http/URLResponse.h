#pragma once

/// \file
/// `URLResponse`: what came back, its body aside.

#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <utility>

namespace VanticRestKit {

class HTTPURLResponse;

/// An answer without its body. Immutable, and always held by a `std::shared_ptr<const URLResponse>`.
class VRK_EXPORT URLResponse {
public:
    /// An answer from that address.
    explicit URLResponse(std::optional<URL> url) : url_(std::move(url)) {}
    virtual ~URLResponse() = default;

    URLResponse(const URLResponse&) = delete;
    URLResponse& operator=(const URLResponse&) = delete;

    /// Where the answer came from: behind redirects, the last URL.
    const std::optional<URL>& url() const noexcept { return url_; }

    /// This answer as one of HTTP, or null where it is none. Lives as long as this object.
    virtual const HTTPURLResponse* asHTTP() const noexcept { return nullptr; }

private:
    std::optional<URL> url_;
};

}  // namespace VanticRestKit
