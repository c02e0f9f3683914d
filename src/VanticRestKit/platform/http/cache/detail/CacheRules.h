#pragma once

/// \file
/// When an answer may be kept, and when a kept one may be used.

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <cstdint>

namespace VanticRestKit::detail {

/// Whether the answer to `request` may be kept at all.
bool mayStore(const CacheRequest& request, const StoredResponse& response);

/// Whether keeping it can save something: it is fresh for some time, or the server can be asked whether it has
/// changed.
bool isWorthStoring(const StoredResponse& response);

/// How a stored answer may be used for a request.
enum class Reuse {
    /// At once.
    fresh,
    /// At once although it is stale, since the request allows that.
    stale,
    /// At once although it is stale, while the server is asked for a newer one.
    staleWhileRevalidate,
    /// Only if the server says that it is still good.
    validate,
};

/// How the protocol lets `stored` be used for `request`.
Reuse reuseOf(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// Whether the time for which it is fresh has not passed, whatever a request says.
bool isFresh(const StoredResponse& stored, CacheTime now);

/// Whether `stored` may be used if the server cannot be reached: as `isUsableOnError` says, and for as long again as the
/// server declared it fresh, which bridges a short loss of the network.
bool isUsableOffline(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// Whether `stored` may be used in place of an error that the server reports.
bool isUsableOnError(const StoredResponse& stored, const CacheRequest& request, CacheTime now);

/// Whether an answer of this status is an error in place of which a stored answer may be used.
constexpr bool isServerError(std::int64_t status) noexcept {
    return status == 500 || status == 502 || status == 503 || status == 504;
}

/// Whether a request that was answered with `status` has changed what it named.
constexpr bool hasChangedTarget(bool isSafe, std::int64_t status) noexcept {
    return !isSafe && status >= 200 && status < 400;
}

}  // namespace VanticRestKit::detail
