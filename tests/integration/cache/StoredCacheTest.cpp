// A cache with a persistent store that is shared with other sessions and later processes.

#include "SessionCache.h"

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <map>
#include <mutex>
#include <vector>

namespace VanticRestKit::test {

namespace {

/// Keeps records in memory and answers reads on a separate thread.
class FakeStore final : public detail::CacheStore {
public:
    void read(std::string key, Found found) override {
        std::vector<detail::CacheRecord> records;
        {
            const std::lock_guard lock(mutex_);
            ++reads_;
            if (isStuck_) {
                stuck_.push_back(std::move(found));
                return;
            }
            for (const auto& [name, record] : records_) {
                if (name.first == key) records.push_back(record);
            }
        }
        queue_.async([records = std::move(records), found = std::move(found)]() mutable {
            found(std::move(records));
        });
    }
    void write(detail::CacheRecord record) override {
        const std::lock_guard lock(mutex_);
        records_[{record.key, record.variant}] = record;
    }
    void writeHead(detail::CacheRecord record) override {
        const std::lock_guard lock(mutex_);
        const auto found = records_.find({record.key, record.variant});
        if (found != records_.end() && found->second.body == record.body) found->second.head = record.head;
    }
    void remove(std::string key) override {
        const std::lock_guard lock(mutex_);
        std::erase_if(records_, [&](const auto& each) { return each.first.first == key; });
    }
    void removeAll(std::string prefix) override {
        const std::lock_guard lock(mutex_);
        std::erase_if(records_, [&](const auto& each) { return each.first.first.starts_with(prefix); });
    }
    std::uint64_t currentUsage() const override { return 0; }
    void flush() override {}

    /// Stops answering reads
    void getStuck() {
        const std::lock_guard lock(mutex_);
        isStuck_ = true;
    }
    /// until this call, which answers all of them with no records.
    void recover() {
        std::vector<Found> stuck;
        {
            const std::lock_guard lock(mutex_);
            isStuck_ = false;
            stuck = std::exchange(stuck_, {});
        }
        for (Found& found : stuck) found({});
    }
    int reads() const {
        const std::lock_guard lock(mutex_);
        return reads_;
    }

private:
    DispatchQueue queue_{"fake store"};
    mutable std::mutex mutex_;
    bool isStuck_ = false;
    int reads_ = 0;
    std::vector<Found> stuck_;
    std::map<std::pair<std::string, std::string>, detail::CacheRecord> records_;
};

class StoredCache : public SessionCache {
protected:
    // An unanswered read keeps the cache alive, and the cache keeps the store alive.
    ~StoredCache() override { store->recover(); }

    /// A session of another process with the same store.
    std::shared_ptr<URLSession> anotherSession() { return makeSession(makeCache(store)); }

    std::shared_ptr<FakeStore> store = std::make_shared<FakeStore>();
};

TEST_F(StoredCache, AnswersWithAResponseStoredByAnotherProcess) {
    FaultServer server(always(answer(200, "body", fresh)));
    load(*anotherSession(), server.url());
    const Loaded loaded = load(*anotherSession(), server.url());
    EXPECT_EQ(sourceOf(loaded), Source::cache);
    EXPECT_EQ(loaded.body(), "body");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(StoredCache, UsesAResponseOnlyForTheSameCookie) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(answer(200, "for " + request->header("cookie"), fresh));
        }
    });
    const auto as = [&](const char* cookie) {
        URLRequest request = requestOf(server.url());
        if (*cookie != '\0') request.setValue(cookie, "Cookie");
        return load(*anotherSession(), request).body();
    };
    for (const char* cookie : {"", "user=1", "user=2"}) EXPECT_EQ(as(cookie), std::string("for ") + cookie);
    EXPECT_EQ(server.requests().size(), 3U);
    for (const char* cookie : {"user=2", "", "user=1"}) EXPECT_EQ(as(cookie), std::string("for ") + cookie);
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(StoredCache, StoresARevalidatedResponse) {
    FaultServer server([](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            connection.send(request->has("if-none-match")
                                ? "HTTP/1.1 304 Not Modified\r\nETag: \"a\"\r\nX-New: 1\r\n\r\n"
                                : answer(200, "body", fresh));
        }
    });
    load(*anotherSession(), server.url());
    clock.move(std::chrono::seconds(61));
    load(*anotherSession(), server.url());
    const Loaded third = load(*anotherSession(), server.url());
    EXPECT_EQ(sourceOf(third), Source::cache);
    EXPECT_EQ(third.header("X-New"), "1");
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(StoredCache, DoesNotReplaceTheHeadOfABodyStoredByAnotherProcess) {
    FaultServer server([&server](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->has("if-none-match")) {
                if (!server.hold()) return;
                connection.send("HTTP/1.1 304 Not Modified\r\nETag: \"1\"\r\nX-Version: 1\r\n\r\n");
            } else {
                const std::string version = server.requests().size() > 1 ? "2" : "1";
                connection.send(answer(200, "version " + version,
                                       "Cache-Control: max-age=60\r\nETag: \"" + version +
                                           "\"\r\nX-Version: " + version + "\r\n"));
            }
        }
    });
    const auto one = anotherSession();
    load(*one, server.url());
    clock.move(std::chrono::seconds(61));
    const Loaded confirmed = startLoad(*one, requestOf(server.url()));
    ASSERT_TRUE(server.waitForRequests(2));
    // Meanwhile the other process gets a new version and stores it.
    load(*anotherSession(), requestWith(server, Policy::reloadIgnoringLocalCacheData));
    server.releaseHeld();
    EXPECT_EQ(confirmed.body(), "version 1");
    const Loaded later = load(*anotherSession(), server.url());
    EXPECT_EQ(sourceOf(later), Source::cache);
    EXPECT_EQ(later.body(), "version 2");
    EXPECT_EQ(later.header("X-Version"), "2");
}

TEST_F(StoredCache, IsNotWaitedForIfItDoesNotAnswer) {
    FaultServer server(always(answer(200, "body", fresh)));
    const auto stuck = anotherSession();
    store->getStuck();
    const Loaded first = load(*stuck, server.url("/1"));
    EXPECT_EQ(first.body(), "body");
    EXPECT_EQ(sourceOf(first), Source::network);
    // It is not read again until it has answered,
    EXPECT_EQ(load(*stuck, server.url("/2")).body(), "body");
    EXPECT_EQ(store->reads(), 1);
    store->recover();
    // and then it is.
    EXPECT_EQ(load(*stuck, server.url("/3")).body(), "body");
    EXPECT_EQ(store->reads(), 2);
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(StoredCache, FailsACacheOnlyLoadIfItDoesNotAnswer) {
    FaultServer server(always(answer(200, "body", fresh)));
    store->getStuck();
    EXPECT_EQ(load(*anotherSession(), requestWith(server, Policy::returnCacheDataDontLoad)).code(),
              URLErrorCode::resourceUnavailable);
    EXPECT_EQ(server.requests().size(), 0U);
}

TEST_F(StoredCache, CanAnswerAfterTheLoadWasCancelled) {
    FaultServer server(always(answer(200, "body", fresh)));
    const auto stuck = anotherSession();
    store->getStuck();
    Loaded loaded;
    const auto task = stuck->dataTask(requestOf(server.url()), loaded.completion());
    task->resume();
    task->cancel();
    EXPECT_EQ(loaded.code(), URLErrorCode::cancelled);
    store->recover();
    EXPECT_EQ(load(*stuck, server.url()).body(), "body");
    EXPECT_EQ(loaded.calls(), 1);
}

}  // namespace

}  // namespace VanticRestKit::test
