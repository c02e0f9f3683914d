#pragma once

/// \file
/// The library's internal access to a `URLCache`.

#include <VanticRestKit/platform/http/cache/detail/CacheClock.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <memory>

namespace VanticRestKit::detail {

class CacheCore;

struct CacheAccess {
    /// Makes a cache with the given clock, and with a store besides memory if `store` is not null.
    static std::shared_ptr<URLCache> make(std::size_t memoryCapacity, std::shared_ptr<CacheStore> store,
                                          CacheClock clock = systemCacheTime);

    /// The part of `cache` that sessions use; null if `cache` is null.
    static std::shared_ptr<CacheCore> core(const std::shared_ptr<URLCache>& cache);
};

}  // namespace VanticRestKit::detail
