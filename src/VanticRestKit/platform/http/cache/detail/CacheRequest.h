#pragma once

/// \file
/// `CacheRequest`: what a cache needs to know of a request.

#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <string_view>

namespace VanticRestKit::detail {

/// The header fields of a request that matter to a cache, found in one pass. The views lie in the request.
struct CacheRequest {
    explicit CacheRequest(const URLRequest& request);

    bool isGet = false;
    bool isHead = false;
    /// Whether it changes nothing on the server, as its method says.
    bool isSafe = false;

    std::string_view authorization{};
    std::string_view cookie{};
    std::string_view range{};
    std::string_view ifNoneMatch{};
    std::string_view ifModifiedSince{};
    /// Its Cache-Control. A `Pragma: no-cache` counts as `no-cache` if there is no Cache-Control.
    CacheControl control{};
    bool hasControl = false;
    /// Whether it has a condition that only the server can judge, or a body on which its answer may depend.
    bool isForServerOnly = false;

    /// Whether an answer in a cache may do for it.
    bool isAnswerable() const { return (isGet || isHead) && !isForServerOnly && !control.noStore; }
    /// Whether it asks under a condition of its own.
    bool isConditional() const { return !ifNoneMatch.empty() || !ifModifiedSince.empty(); }
    /// Whether its answer may be kept as the answer to its URL. Answers with a status of their own are judged later.
    bool isStorable() const { return isGet && !isForServerOnly && !control.noStore; }
};

}  // namespace VanticRestKit::detail
