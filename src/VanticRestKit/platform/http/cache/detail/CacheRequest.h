#pragma once

/// \file
/// `CacheRequest`: what a cache needs to know about a request.

#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <string_view>

namespace VanticRestKit::detail {

/// The header fields of a request that matter to a cache, found in one pass. The views refer to the request.
struct CacheRequest {
    explicit CacheRequest(const URLRequest& request);

    bool isGet = false;
    bool isHead = false;
    /// Whether its method is safe: it changes nothing on the server.
    bool isSafe = false;

    std::string_view authorization{};
    std::string_view cookie{};
    std::string_view range{};
    std::string_view ifNoneMatch{};
    std::string_view ifModifiedSince{};
    /// Its Cache-Control. A `Pragma: no-cache` counts as `no-cache` if there is no Cache-Control.
    CacheControl control{};
    bool hasControl = false;
    /// Whether it has a condition that only the server can evaluate, or a body that its response may depend on.
    bool isForServerOnly = false;

    /// Whether a cached response may be used for it.
    bool isAnswerable() const { return (isGet || isHead) && !isForServerOnly && !control.noStore; }
    /// Whether it has its own condition.
    bool isConditional() const { return !ifNoneMatch.empty() || !ifModifiedSince.empty(); }
    /// Whether its response may be stored, as far as the request decides that.
    bool isStorable() const { return isGet && !isForServerOnly && !control.noStore; }
};

}  // namespace VanticRestKit::detail
