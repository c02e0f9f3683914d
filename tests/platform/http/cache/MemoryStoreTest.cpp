#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/MemoryStore.h>
#include <VanticRestKit/platform/http/cache/detail/Vary.h>

#include <gtest/gtest.h>

namespace VanticRestKit::test {

namespace {

using detail::CacheKey;
using detail::CachePartition;
using detail::MemoryStore;
using detail::StoredPointer;

URLRequest requestWith(const std::string& name = "X-None", const std::string& value = "") {
    URLRequest request(*URL::make("http://host.test/"));
    request.setValue(value, name);
    return request;
}

CacheKey keyOf(const std::string& url, const std::string& authorization = "") {
    return {.partition = CachePartition(authorization, ""), .url = url};
}

StoredPointer variantFor(const URLRequest& request, const std::string& body) {
    auto parts = partsOf({{"Vary", "Accept-Language"}}, body);
    parts.variant = *detail::variantOf("Accept-Language", request);
    return std::make_shared<const detail::StoredResponse>(std::move(parts));
}

struct Store {
    explicit Store(std::size_t capacity = 1'000'000) : memory(capacity) {}

    bool put(const CacheKey& key, const StoredPointer& response) {
        return memory.put(key, response, nullptr, removed);
    }
    StoredPointer find(const CacheKey& key) { return memory.find(key, requestWith()); }

    MemoryStore memory;
    MemoryStore::Removed removed;
};

TEST(MemoryStore, FindsAResponseOnlyByItsKey) {
    Store store;
    const StoredPointer stored = storedOf({});
    store.put(keyOf("a", "Bearer 1"), stored);
    EXPECT_EQ(store.find(keyOf("a", "Bearer 1")), stored);
    EXPECT_EQ(store.find(keyOf("a", "Bearer 2")), nullptr);
    EXPECT_EQ(store.find(keyOf("a")), nullptr);
    EXPECT_EQ(store.find(keyOf("b", "Bearer 1")), nullptr);
}

TEST(MemoryStore, KeepsVariantsForDifferentHeaderValues) {
    Store store;
    const URLRequest english = requestWith("Accept-Language", "en");
    const URLRequest german = requestWith("Accept-Language", "de");
    const StoredPointer first = variantFor(english, "yes");
    const StoredPointer second = variantFor(german, "ja");
    store.put(keyOf("a"), first);
    store.put(keyOf("a"), second);
    EXPECT_EQ(store.memory.find(keyOf("a"), english), first);
    EXPECT_EQ(store.memory.find(keyOf("a"), german), second);
    EXPECT_EQ(store.find(keyOf("a")), nullptr);
    const StoredPointer newer = variantFor(german, "jawohl");
    store.put(keyOf("a"), newer);
    EXPECT_EQ(store.memory.find(keyOf("a"), german), newer);
    EXPECT_EQ(store.memory.count(), 2U);
}

TEST(MemoryStore, FindsTheLatestOfSeveralThatMatch) {
    URLRequest both = requestWith("Accept-Language", "de");
    both.setValue("a", "Accept");
    const auto receivedAfter = [&both](const char* vary, std::chrono::seconds time) {
        auto parts = partsOf({{"Vary", vary}});
        parts.received = after(time);
        parts.variant = *detail::variantOf(vary, both);
        return std::make_shared<const detail::StoredResponse>(std::move(parts));
    };
    const StoredPointer early = receivedAfter("Accept", std::chrono::seconds(1));
    const StoredPointer late = receivedAfter("Accept-Language", std::chrono::seconds(2));
    Store store;
    store.put(keyOf("a"), early);
    store.put(keyOf("a"), late);
    store.put(keyOf("b"), late);
    store.put(keyOf("b"), early);
    EXPECT_EQ(store.memory.find(keyOf("a"), both), late);
    EXPECT_EQ(store.memory.find(keyOf("b"), both), late);
}

TEST(MemoryStore, ReplacesAResponseThatMatchesTheSameRequest) {
    URLRequest both = requestWith("Accept-Language", "de");
    Store store;
    store.put(keyOf("a"), variantFor(both, "ja"));
    const StoredPointer plain = storedOf({});
    store.memory.put(keyOf("a"), plain, &both, store.removed);
    EXPECT_EQ(store.memory.all(keyOf("a")), std::vector<StoredPointer>{plain});
}

TEST(MemoryStore, HasNothingToReplaceOrRemoveForAnotherKey) {
    Store store;
    const StoredPointer stored = storedOf({});
    store.put(keyOf("a"), stored);
    EXPECT_FALSE(store.memory.replace(keyOf("b"), stored, storedOf({}), store.removed));
    store.memory.remove(keyOf("b"), stored, store.removed);
    store.memory.remove(keyOf("b"), store.removed);
    EXPECT_EQ(store.find(keyOf("a")), stored);
    EXPECT_TRUE(store.removed.empty());
}

TEST(MemoryStore, EvictsTheLeastRecentlyUsed) {
    const std::string body(1000, 'x');
    Store measure;
    measure.put(keyOf("a"), storedOf({}, body));
    measure.put(keyOf("b"), storedOf({}, body));
    const std::size_t two = measure.memory.usage();

    Store store(two + two / 4);
    store.put(keyOf("a"), storedOf({}, body));
    store.put(keyOf("b"), storedOf({}, body));
    EXPECT_NE(store.find(keyOf("a")), nullptr);
    store.put(keyOf("c"), storedOf({}, body));
    EXPECT_NE(store.find(keyOf("a")), nullptr);
    EXPECT_EQ(store.find(keyOf("b")), nullptr);
    EXPECT_NE(store.find(keyOf("c")), nullptr);
    EXPECT_LE(store.memory.usage(), store.memory.capacity());
}

TEST(MemoryStore, RejectsAResponseLargerThanHalfItsCapacity) {
    Store store(10'000);
    store.put(keyOf("small"), storedOf({}));
    EXPECT_FALSE(store.put(keyOf("large"), storedOf({}, std::string(5000, 'x'))));
    EXPECT_NE(store.find(keyOf("small")), nullptr);
    EXPECT_EQ(store.find(keyOf("large")), nullptr);
}

TEST(MemoryStore, RemovesTheResponsesOfOneAuthorization) {
    Store store;
    store.put(keyOf("a", "Bearer 1"), storedOf({}));
    store.put(keyOf("b", "Bearer 1"), storedOf({}));
    store.put(keyOf("a", "Bearer 2"), storedOf({}));
    store.memory.removeAll(CachePartition::prefixOf("Bearer 1"), store.removed);
    EXPECT_EQ(store.memory.count(), 1U);
    EXPECT_NE(store.find(keyOf("a", "Bearer 2")), nullptr);
    store.memory.removeAll("", store.removed);
    EXPECT_EQ(store.memory.count(), 0U);
    EXPECT_EQ(store.memory.usage(), 0U);
}

TEST(MemoryStore, CountsAReplacementInsteadOfTheOriginal) {
    Store store;
    const StoredPointer stored = storedOf({}, std::string(100, 'x'));
    store.put(keyOf("a"), stored);
    const std::size_t before = store.memory.usage();
    EXPECT_TRUE(store.memory.replace(keyOf("a"), stored, storedOf({}, std::string(300, 'x')), store.removed));
    EXPECT_EQ(store.memory.usage(), before + 200);
    EXPECT_FALSE(store.memory.replace(keyOf("a"), stored, storedOf({}), store.removed));
}

TEST(MemoryStore, LimitsTheNumberOfVariantsOfAURL) {
    Store store;
    for (int i = 0; i < 100; ++i) {
        store.put(keyOf("a"), variantFor(requestWith("Accept-Language", std::to_string(i)), "x"));
    }
    EXPECT_LE(store.memory.count(), 32U);
}

}  // namespace

}  // namespace VanticRestKit::test
