#pragma once

/// \file
/// The origin of a URL, and whether a URL can be asked at all.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// Scheme, host and port as one text, the same for all URLs of one origin: "https://host:443".
std::string originOf(const URL& url);

/// Scheme and authority of `url` as they are written; empty where there is not both.
std::string_view beginningOf(const URL& url);

/// Whether `beginning`, which is not empty, is scheme and authority of `url` as they are written.
bool beginsWith(const URL& url, std::string_view beginning);

/// Whether `url` is one of https.
bool isSecure(const URL& url);

/// Why `request` cannot be sent; empty where it can.
std::optional<TransportFault> whyUnusable(const URLRequest& request);

/// Remembers the last origin that a request can be sent to: most of the URLs that follow have the same, and
/// then nothing has to be read again. For one thread.
class OriginMemo {
public:
    /// Whether `url` begins as the one remembered does, up to its path: requests can be sent there too.
    bool knows(const URL& url) const { return beginsWith(url, beginning_); }
    /// `originOf(url)`, remembered. `url` is one that requests can be sent to.
    const std::string& of(const URL& url);
    /// `beginningOf` the URL that `of` was called with last, or of another one that is written the same up to its path.
    std::string_view beginning() const noexcept { return beginning_; }

private:
    std::string beginning_;
    std::string origin_;
};

}  // namespace VanticRestKit::detail
