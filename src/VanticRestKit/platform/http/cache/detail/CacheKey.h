#pragma once

/// \file
/// `CacheKey`: by what a cache finds an answer.

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/url/URL.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// Whose answers a request may get: the digests of its Authorization and of its Cookie. Credentials themselves are in
/// no key, since keys are written to disks.
class CachePartition {
public:
    /// Of requests that bear neither.
    CachePartition() = default;
    CachePartition(std::string_view authorization, std::string_view cookie);

    /// The start of all keys of the requests with this Authorization, whatever their cookies.
    static std::string prefixOf(std::string_view authorization);

    const std::string& text() const noexcept { return text_; }

    friend bool operator==(const CachePartition&, const CachePartition&) = default;

private:
    std::string text_{"-.-"};
};

/// What answers are found by: whose they are, and the URL without its fragment. The origin is in its normal form, the
/// rest of the URL as it is written.
struct CacheKey {
    CachePartition partition{};
    std::string url{};

    /// As one text, which begins with the partition.
    std::string text() const { return partition.text() + ' ' + url; }
};

/// Makes keys. Remembers the credentials of the last request, since most of those that follow have the same. For one
/// thread.
class CacheKeys {
public:
    /// The key of `request` to `url`, which requests can be sent to.
    CacheKey of(const CacheRequest& request, const URL& url);

private:
    OriginMemo origins_;
    std::string authorization_;
    std::string cookie_;
    CachePartition partition_;
};

}  // namespace VanticRestKit::detail
