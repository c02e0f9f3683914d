#include "RecordingStore.h"
#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>
#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::test {

namespace {

URLRequest requestOf(const char* url, const char* authorization = nullptr) {
    URLRequest request(*URL::make(url));
    if (authorization != nullptr) request.setValue(authorization, "Authorization");
    return request;
}

/// Stores a response to `request` in `cache`, as a session does.
void store(const std::shared_ptr<URLCache>& cache, const URLRequest& request, const std::string& body) {
    const auto core = detail::CacheAccess::core(cache);
    const detail::CacheKey key = detail::CacheKeys().of(detail::CacheRequest(request), *request.url());
    ASSERT_TRUE(core->put(key, storedOf({{"X-Own", "1"}}, body, 203), request, core->moment()));
}

std::string bodyIn(const URLCache& cache, const URLRequest& request) {
    const auto found = cache.cachedResponse(request);
    return found ? std::string(found->data.view()) : "none";
}

TEST(URLCache, ReturnsTheResponseStoredForARequest) {
    const auto cache = URLCache::make();
    const URLRequest request = requestOf("http://host.test/a");
    store(cache, request, "body");
    const auto found = cache->cachedResponse(request);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->data.view(), "body");
    EXPECT_EQ(found->response->statusCode(), 203);
    EXPECT_EQ(found->response->value("X-Own"), "1");
    EXPECT_EQ(found->response->url()->absoluteString(), "http://host.test/a");
    EXPECT_EQ(found->response->source(), HTTPCacheStatus::Source::cache);
    EXPECT_EQ(found->response->cacheStatus().text(), "VanticRestKit; hit");
    EXPECT_EQ(cache->hits(), 0U);
    EXPECT_FALSE(cache->cachedResponse(requestOf("http://host.test/b")));
}

TEST(URLCache, HasNothingForARequestThatCannotBeSent) {
    const auto cache = URLCache::make();
    store(cache, requestOf("http://host.test/"), "body");
    URLRequest unusable = requestOf("http://host.test/");
    unusable.setHTTPMethod("CONNECT");
    EXPECT_FALSE(cache->cachedResponse(unusable));
    cache->removeCachedResponse(unusable);
    EXPECT_EQ(bodyIn(*cache, requestOf("http://host.test/")), "body");
}

TEST(URLCache, RemovesTheResponsesOfOneURLForOneAuthorization) {
    const auto cache = URLCache::make();
    const URLRequest removed = requestOf("http://host.test/a", "Bearer 1");
    const URLRequest otherUser = requestOf("http://host.test/a", "Bearer 2");
    const URLRequest otherUrl = requestOf("http://host.test/b", "Bearer 1");
    for (const URLRequest& request : {removed, otherUser, otherUrl}) store(cache, request, "body");
    cache->removeCachedResponse(removed);
    EXPECT_EQ(bodyIn(*cache, removed), "none");
    EXPECT_EQ(bodyIn(*cache, otherUser), "body");
    EXPECT_EQ(bodyIn(*cache, otherUrl), "body");
}

TEST(URLCache, RemovesNothingForAnEmptyAuthorization) {
    const auto cache = URLCache::make();
    store(cache, requestOf("http://host.test/"), "without");
    store(cache, requestOf("http://host.test/", "Bearer 1"), "with");
    cache->removeCachedResponses("");
    EXPECT_EQ(bodyIn(*cache, requestOf("http://host.test/")), "without");
    EXPECT_EQ(bodyIn(*cache, requestOf("http://host.test/", "Bearer 1")), "with");
}

TEST(URLCache, HasTheMemoryCapacityThatItWasMadeWith) {
    EXPECT_EQ(URLCache::make()->memoryCapacity(), URLCache::defaultMemoryCapacity);
    EXPECT_EQ(URLCache::make(12345)->memoryCapacity(), 12345U);
}

TEST(URLCache, RemovesResponsesAtOnceThatExceedANewMemoryCapacity) {
    const auto cache = URLCache::make();
    store(cache, requestOf("http://host.test/a"), std::string(1000, 'a'));
    store(cache, requestOf("http://host.test/b"), std::string(1000, 'b'));
    const std::size_t both = cache->currentMemoryUsage();
    cache->setMemoryCapacity(both - 1);
    EXPECT_EQ(cache->memoryCapacity(), both - 1);
    EXPECT_LT(cache->currentMemoryUsage(), both);
    EXPECT_EQ(bodyIn(*cache, requestOf("http://host.test/a")), "none");
    EXPECT_EQ(bodyIn(*cache, requestOf("http://host.test/b")), std::string(1000, 'b'));
    cache->setMemoryCapacity(0);
    EXPECT_EQ(cache->currentMemoryUsage(), 0U);
}

TEST(URLCache, PassesFlushToItsStoreAndReportsTheDiskUsageOfIt) {
    const auto recording = std::make_shared<RecordingStore>();
    const auto cache = detail::CacheAccess::make(URLCache::defaultMemoryCapacity, recording);
    EXPECT_EQ(cache->currentDiskUsage(), RecordingStore::usage);
    cache->flush();
    EXPECT_EQ(recording->calls, std::vector<std::string>{"flush"});
}

TEST(URLCache, UsesNoDiskIfItIsOnlyInMemory) {
    const auto cache = URLCache::make();
    store(cache, requestOf("http://host.test/"), "body");
    cache->flush();
    EXPECT_EQ(cache->currentDiskUsage(), 0U);
    EXPECT_EQ(bodyIn(*cache, requestOf("http://host.test/")), "body");
}

}  // namespace

}  // namespace VanticRestKit::test
