#pragma once

/// \file
/// `CacheKey`: the key of a cached response.

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/url/URL.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// Separates responses by credentials: the digests of a request's Authorization and Cookie. Keys are written to disk,
/// so they must not contain the credentials themselves.
class CachePartition {
public:
    /// The partition of requests with neither.
    CachePartition() = default;
    CachePartition(std::string_view authorization, std::string_view cookie);

    /// The prefix of all keys of requests with this Authorization, for any cookies.
    static std::string prefixOf(std::string_view authorization);

    const std::string& text() const noexcept { return text_; }

    friend bool operator==(const CachePartition&, const CachePartition&) = default;

private:
    std::string text_{"-.-"};
};

/// The partition and the URL without its fragment. The origin is normalised; the rest of the URL is unchanged.
struct CacheKey {
    CachePartition partition{};
    std::string url{};

    /// The key as one string, which begins with the partition.
    std::string text() const { return partition.text() + ' ' + url; }
};

/// Makes keys. Caches the digests of the last request's credentials, since most requests have the same ones. For one
/// thread.
class CacheKeys {
public:
    /// The key of `request` for `url`, which must be a URL that requests can be sent to.
    CacheKey of(const CacheRequest& request, const URL& url);

private:
    OriginMemo origins_;
    std::string authorization_;
    std::string cookie_;
    CachePartition partition_;
};

}  // namespace VanticRestKit::detail
