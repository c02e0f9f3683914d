#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>
#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>
#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/DiskCacheStore.h>
#include <VanticRestKit/platform/http/detail/Origin.h>

#include <utility>

namespace VanticRestKit {

namespace {

struct Shared {
    detail::ForkMark mark{};
    std::shared_ptr<URLCache> cache = URLCache::make();
};

/// Empty for a request that cannot be sent.
std::optional<detail::CacheKey> keyOf(const URLRequest& request) {
    if (detail::whyUnusable(request)) return std::nullopt;
    return detail::CacheKeys().of(detail::CacheRequest(request), *request.url());
}

}  // namespace

URLCache::URLCache(std::shared_ptr<detail::CacheCore> core) : core_(std::move(core)) {}

URLCache::~URLCache() = default;

std::shared_ptr<URLCache> URLCache::make(std::size_t memoryCapacity) {
    return detail::CacheAccess::make(memoryCapacity, nullptr);
}

std::shared_ptr<URLCache> URLCache::makeOnDisk(DiskArguments arguments) {
    return detail::CacheAccess::make(
        arguments.memoryCapacity,
        detail::openDiskCacheStore(std::move(arguments.folder), arguments.diskCapacity,
                                   std::move(arguments.report)));
}

const std::shared_ptr<URLCache>& URLCache::shared() {
    static Shared& shared = *new Shared;
    // The parent's cache is leaked: its locks may be held by threads that do not exist in the child.
    shared.mark.renewInChild([] { new std::shared_ptr<URLCache>(std::exchange(shared.cache, make())); });
    return shared.cache;
}

std::size_t URLCache::memoryCapacity() const { return core_->capacity(); }

void URLCache::setMemoryCapacity(std::size_t bytes) { core_->setCapacity(bytes); }

std::size_t URLCache::currentMemoryUsage() const { return core_->usage(); }

std::uint64_t URLCache::currentDiskUsage() const {
    return core_->hasStore() ? core_->store()->currentUsage() : 0;
}

void URLCache::flush() {
    if (core_->hasStore()) core_->store()->flush();
}

std::uint64_t URLCache::hits() const { return core_->hits(); }

std::uint64_t URLCache::misses() const { return core_->misses(); }

std::optional<CachedURLResponse> URLCache::cachedResponse(const URLRequest& request) const {
    const auto key = keyOf(request);
    const detail::StoredPointer stored = key ? core_->find(*key, request) : nullptr;
    if (!stored) return std::nullopt;
    const HTTPCacheStatus status{.source = HTTPCacheStatus::Source::cache,
                                 .forwarding = HTTPCacheStatus::Forwarding::none,
                                 .hasCache = true};
    return CachedURLResponse{.response = std::make_shared<const HTTPURLResponse>(
                                 request.url(), stored->status(), stored->fields(), status),
                             .data = stored->body()};
}

void URLCache::removeCachedResponse(const URLRequest& request) {
    if (const auto key = keyOf(request)) core_->remove(*key);
}

void URLCache::removeCachedResponses(std::string_view authorization) {
    if (authorization.empty()) return;
    core_->removeAll(detail::CachePartition::prefixOf(authorization));
}

void URLCache::removeAllCachedResponses() { core_->removeAll(""); }

}  // namespace VanticRestKit
