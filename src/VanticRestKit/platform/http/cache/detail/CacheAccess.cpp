#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>

#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>

#include <utility>

namespace VanticRestKit::detail {

std::shared_ptr<URLCache> CacheAccess::make(std::size_t memoryCapacity, std::shared_ptr<CacheStore> store,
                                            CacheClock clock) {
    return std::shared_ptr<URLCache>(
        new URLCache(std::make_shared<CacheCore>(memoryCapacity, std::move(store), std::move(clock))));
}

std::shared_ptr<CacheCore> CacheAccess::core(const std::shared_ptr<URLCache>& cache) {
    return cache ? cache->core_ : nullptr;
}

}  // namespace VanticRestKit::detail
