#pragma once

/// \file
/// When a response may be stored, and when a stored one may be used.

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <cstdint>

namespace VanticRestKit::detail {

/// Whether the response to `request` may be stored at all.
bool mayStore(const CacheRequest& request, const StoredResponse& response);

/// Whether storing it can be useful: it is fresh for some time, or it can be revalidated.
bool isWorthStoring(const StoredResponse& response);

/// How a stored response may be used for a request.
enum class Reuse {
    /// Immediately.
    fresh,
    /// Immediately although it is stale, because the request allows that.
    stale,
    /// Immediately although it is stale, while it is revalidated in the background.
    staleWhileRevalidate,
    /// Only after the server confirms that it is still valid.
    validate,
};

/// How HTTP allows `stored` to be used for `request`.
Reuse reuseOf(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// Whether its freshness lifetime has not passed, regardless of the request.
bool isFresh(const StoredResponse& stored, CacheTime now);

/// Whether `stored` may be used if the server cannot be reached: if `isUsableOnError`, or for twice the declared
/// freshness lifetime, to bridge a short loss of the network.
bool isUsableOffline(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// Whether `stored` may be used in place of a server error.
bool isUsableOnError(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// Whether a stored response may replace a response with this status.
constexpr bool isServerError(std::int64_t status) noexcept {
    return status == 500 || status == 502 || status == 503 || status == 504;
}

/// Whether a request that got this status has changed its target resource.
constexpr bool hasChangedTarget(bool isSafe, std::int64_t status) noexcept {
    return !isSafe && status >= 200 && status < 400;
}

}  // namespace VanticRestKit::detail
