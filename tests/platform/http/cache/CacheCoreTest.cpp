#include "RecordingStore.h"
#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>
#include <VanticRestKit/platform/http/cache/detail/CacheRecordForm.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::test {

namespace {

using detail::CacheCore;
using detail::CacheKey;
using detail::CachePartition;
using detail::StoredPointer;

class CacheCoreTest : public testing::Test {
protected:
    static CacheKey keyOf(const std::string& url, const std::string& authorization = "") {
        return {.partition = CachePartition(authorization, ""), .url = url};
    }

    static detail::CacheRecord recordOf(const CacheKey& of, const std::string& body) {
        return detail::recordOf(of.text(), *storedOf({{"Cache-Control", "max-age=60"}}, body));
    }

    StoredPointer find(const CacheKey& of) const { return core->find(of, request); }

    bool put(const CacheKey& to, const StoredPointer& response, std::uint64_t begun) {
        return core->put(to, response, request, begun);
    }

    /// Starts to read `from`; the bodies found are added to `bodies`.
    void read(const CacheKey& from) {
        core->read(from, [this](const std::vector<StoredPointer>& found) {
            for (const StoredPointer& response : found) bodies.emplace_back(response->body().view());
        });
    }

    std::shared_ptr<CacheCore> coreOf(std::size_t capacity, std::shared_ptr<detail::CacheStore> with) {
        return std::make_shared<CacheCore>(capacity, std::move(with), [] { return after({}); });
    }

    const CacheKey key = keyOf("http://host.test:80/");
    const URLRequest request{*URL::make("http://host.test/")};
    std::shared_ptr<RecordingStore> store = std::make_shared<RecordingStore>();
    std::shared_ptr<CacheCore> core = coreOf(1'000'000, store);
    std::vector<std::string> bodies;
};

TEST_F(CacheCoreTest, KeepsWhatItReadsFromTheStoreInMemory) {
    read(key);
    store->answer({recordOf(key, "stored")});
    EXPECT_EQ(bodies, std::vector<std::string>{"stored"});
    ASSERT_NE(find(key), nullptr);
    EXPECT_EQ(find(key)->body().view(), "stored");
}

TEST_F(CacheCoreTest, SkipsARecordThatItCannotRead) {
    detail::CacheRecord damaged = recordOf(key, "damaged");
    damaged.head = Data("?");
    read(key);
    store->answer({damaged, recordOf(key, "stored")});
    EXPECT_EQ(bodies, std::vector<std::string>{"stored"});
}

TEST_F(CacheCoreTest, PrefersAResponseReceivedDuringTheReadToThatOfTheStore) {
    read(key);
    put(key, storedOf({}, "received"), core->moment());
    store->answer({recordOf(key, "stored")});
    EXPECT_TRUE(bodies.empty());
    EXPECT_EQ(find(key)->body().view(), "received");
}

TEST_F(CacheCoreTest, FindsNothingInTheStoreThatWasRemovedDuringTheRead) {
    read(key);
    core->remove(key);
    store->answer({recordOf(key, "stored")});
    EXPECT_TRUE(bodies.empty());
    EXPECT_EQ(find(key), nullptr);
}

TEST_F(CacheCoreTest, DoesNotStoreAResponseRequestedBeforeTheRemovalOfItsKey) {
    const std::uint64_t begun = core->moment();
    core->remove(key);
    EXPECT_FALSE(put(key, storedOf({}), begun));
    EXPECT_EQ(find(key), nullptr);
    EXPECT_TRUE(put(key, storedOf({}), core->moment()));
}

TEST_F(CacheCoreTest, StoresAResponseRequestedBeforeTheRemovalOfOthers) {
    const std::uint64_t begun = core->moment();
    // The removal of one URL does not affect a longer one, nor that of one user the others.
    core->remove(keyOf("http://host.test:80"));
    core->removeAll(CachePartition::prefixOf("Bearer 1"));
    EXPECT_TRUE(put(key, storedOf({}), begun));
    EXPECT_FALSE(put(keyOf("http://host.test:80/", "Bearer 1"), storedOf({}), begun));
}

TEST_F(CacheCoreTest, IgnoresARemovalBeforeTheRequest) {
    core->remove(key);
    const std::uint64_t begun = core->moment();
    core->remove(keyOf("http://host.test:80/other"));
    EXPECT_TRUE(put(key, storedOf({}), begun));
}

TEST_F(CacheCoreTest, DoesNotStoreAResponseRequestedBeforeMoreRemovalsThanItRemembers) {
    const std::uint64_t begun = core->moment();
    for (int i = 0; i < 64; ++i) core->remove(keyOf("http://other.test:80/"));
    EXPECT_TRUE(put(key, storedOf({}), begun));
    core->remove(keyOf("http://other.test:80/"));
    EXPECT_FALSE(put(key, storedOf({}), begun));
    EXPECT_TRUE(put(key, storedOf({}), begun + 1));
}

TEST_F(CacheCoreTest, ReportsAResponseTooLargeForMemoryAsStoredOnlyWithAStore) {
    const StoredPointer large = storedOf({}, std::string(6000, 'x'));
    core = coreOf(10'000, store);
    EXPECT_TRUE(put(key, large, 0));
    EXPECT_EQ(store->calls, std::vector<std::string>{"write " + key.text()});
    core = coreOf(10'000, nullptr);
    EXPECT_FALSE(put(key, large, 0));
}

TEST_F(CacheCoreTest, UpdatesAResponseInMemoryAndInTheStore) {
    const StoredPointer first = storedOf({{"X-Version", "1"}});
    const StoredPointer second = storedOf({{"X-Version", "2"}});
    put(key, first, 0);
    store->calls.clear();
    EXPECT_TRUE(core->update(key, first, second, 0));
    EXPECT_EQ(find(key), second);
    EXPECT_EQ(store->calls, std::vector<std::string>{"write head " + key.text()});
}

TEST_F(CacheCoreTest, DoesNotUpdateAResponseThatWasReplacedOrRemoved) {
    const StoredPointer first = storedOf({{"X-Version", "1"}});
    const StoredPointer second = storedOf({{"X-Version", "2"}});
    put(key, first, 0);
    put(key, second, 0);
    store->calls.clear();
    EXPECT_FALSE(core->update(key, first, storedOf({}), 0));
    EXPECT_EQ(find(key), second);

    const std::uint64_t begun = core->moment();
    core->remove(keyOf("http://host.test:80/other"));
    EXPECT_TRUE(core->update(key, second, first, begun));
    core->remove(key);
    put(key, first, core->moment());
    store->calls.clear();
    EXPECT_FALSE(core->update(key, first, second, begun));
    EXPECT_EQ(find(key), first);
    EXPECT_TRUE(store->calls.empty());
}

TEST_F(CacheCoreTest, RemovesFromTheStoreWhatItRemovesFromMemory) {
    const CacheKey own = keyOf("http://host.test:80/", "Bearer 1");
    const StoredPointer stored = storedOf({});
    put(own, stored, 0);
    store->calls.clear();
    core->drop(own, stored);
    EXPECT_EQ(store->calls, std::vector<std::string>{"remove " + own.text()});
    store->calls.clear();
    core->invalidate(own);
    EXPECT_EQ(store->calls, (std::vector<std::string>{"remove " + own.text(), "remove " + key.text()}));
    store->calls.clear();
    core->invalidate(key);
    EXPECT_EQ(store->calls, std::vector<std::string>{"remove " + key.text()});
    store->calls.clear();
    core->removeAll("prefix");
    EXPECT_EQ(store->calls, std::vector<std::string>{"remove all prefix"});
}

TEST_F(CacheCoreTest, DropsOnlyTheResponseGiven) {
    const StoredPointer first = storedOf({});
    const StoredPointer second = storedOf({});
    put(key, first, 0);
    put(key, second, 0);
    core->drop(key, first);
    EXPECT_EQ(find(key), second);
    core->drop(keyOf("http://host.test:80/other"), second);
    EXPECT_EQ(find(key), second);
    core->drop(key, second);
    EXPECT_EQ(find(key), nullptr);
}

TEST_F(CacheCoreTest, RevalidatesAResponseOnceAtATime) {
    const StoredPointer stored = storedOf({});
    EXPECT_TRUE(core->beginRevalidation(stored));
    EXPECT_FALSE(core->beginRevalidation(stored));
    EXPECT_TRUE(core->beginRevalidation(storedOf({})));
    EXPECT_FALSE(core->waitUntilQuiet(std::chrono::milliseconds(0)));
    core->endRevalidation(stored);
    EXPECT_TRUE(core->beginRevalidation(stored));
}

}  // namespace

}  // namespace VanticRestKit::test
