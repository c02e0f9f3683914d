#pragma once

/// \file
/// `URLResponse`: a response without its body.

#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <utility>

namespace VanticRestKit {

class HTTPURLResponse;

/// A response without its body. Immutable, and always held by a `std::shared_ptr<const URLResponse>`.
class VRK_EXPORT URLResponse {
public:
    /// A response from `url`.
    explicit URLResponse(std::optional<URL> url) : url_(std::move(url)) {}
    virtual ~URLResponse() = default;

    URLResponse(const URLResponse&) = delete;
    URLResponse& operator=(const URLResponse&) = delete;

    /// The URL that the response came from; after redirects, the last one.
    const std::optional<URL>& url() const noexcept { return url_; }

    /// This response as an HTTP response, or null if it is not one. Valid as long as this object.
    virtual const HTTPURLResponse* asHTTP() const noexcept { return nullptr; }

private:
    std::optional<URL> url_;
};

}  // namespace VanticRestKit
