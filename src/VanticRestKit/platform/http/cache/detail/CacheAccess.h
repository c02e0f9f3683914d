#pragma once

/// \file
/// What the library does with a `URLCache` and a host does not.

#include <VanticRestKit/platform/http/cache/detail/CacheClock.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <memory>

namespace VanticRestKit::detail {

class CacheCore;

struct CacheAccess {
    /// A cache with a store beyond its memory, if `store` is not null, and with a clock of the caller's.
    static std::shared_ptr<URLCache> make(std::size_t memoryCapacity, std::shared_ptr<CacheStore> store,
                                          CacheClock clock = systemCacheTime);

    /// What sessions use of `cache`; null for none.
    static std::shared_ptr<CacheCore> core(const std::shared_ptr<URLCache>& cache);
};

}  // namespace VanticRestKit::detail
