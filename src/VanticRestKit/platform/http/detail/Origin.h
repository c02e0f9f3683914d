#pragma once

/// \file
/// The origin of a URL, and whether a request can be sent.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// Scheme, host and port as one string, the same for all URLs of an origin: "https://host:443".
std::string originOf(const URL& url);

/// The scheme and authority of `url` as written; empty if it lacks either.
std::string_view beginningOf(const URL& url);

/// Whether `beginning` is the scheme and authority of `url` as written; false if it is empty.
bool beginsWith(const URL& url, std::string_view beginning);

/// Whether the scheme of `url` is https.
bool isSecure(const URL& url);

/// Why `request` cannot be sent; empty if it can.
std::optional<TransportFault> whyUnusable(const URLRequest& request);

/// Caches the last valid origin: most URLs have the same one, and then need not be parsed again. For one thread.
class OriginMemo {
public:
    /// Whether `url` begins with the cached scheme and authority, so that requests can be sent to it.
    bool knows(const URL& url) const { return beginsWith(url, beginning_); }
    /// `originOf(url)`, cached. Requests can be sent to `url`.
    const std::string& of(const URL& url);
    /// `beginningOf` the URL of the last call of `of`.
    std::string_view beginning() const noexcept { return beginning_; }

private:
    std::string beginning_;
    std::string origin_;
};

}  // namespace VanticRestKit::detail
