#pragma once

/// \file
/// `CacheCore`: the part of a `URLCache` that it shares with its sessions.

#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>
#include <VanticRestKit/platform/http/cache/detail/MemoryStore.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The responses in memory, the store on disk if there is one, and counters. Thread-safe; the lock is held only for
/// lookups and small changes. In a child made by `fork` it finds nothing and stores nothing.
class CacheCore : public std::enable_shared_from_this<CacheCore> {
public:
    CacheCore(std::size_t capacity, std::shared_ptr<CacheStore> store, CacheClock clock);

    CacheTime now() const { return clock_(); }

    /// Whether no lookup can find anything.
    bool isEmpty() const noexcept { return !hasStore() && count_.load(std::memory_order_relaxed) == 0; }
    bool hasStore() const noexcept { return store_ != nullptr && mark_.isCurrent(); }

    /// The response in memory for `key` that matches `request`, or null. Sets `hasOthers` to true if there are only
    /// responses that do not match the request.
    StoredPointer find(const CacheKey& key, const URLRequest& request, bool* hasOthers = nullptr);

    /// Increases with each change in memory; a lookup need not be repeated while it stays the same.
    std::uint64_t changes() const noexcept { return changes_.load(std::memory_order_relaxed); }

    using Found = UniqueFunction<void(std::vector<StoredPointer>)>;
    /// Reads the responses for `key` from the store into memory and passes them to `found`, on the store's thread.
    /// Includes responses that are too large for memory, but not those of which memory has a newer one.
    void read(const CacheKey& key, Found found);

    /// The current position in the sequence of removals. The response to a request that began before a removal must not
    /// be stored after it.
    std::uint64_t moment() const noexcept { return removalCount_.load(); }

    /// Stores the response to `request`; `begun` is `moment()` when the request began. Returns whether it was stored.
    bool put(const CacheKey& key, const StoredPointer& response, const URLRequest& request,
             std::uint64_t begun);
    /// Replaces `stored` with `replacement`, which has the same body.
    bool update(const CacheKey& key, const StoredPointer& stored, StoredPointer replacement,
                std::uint64_t begun);
    /// Removes one response that a newer one has made obsolete.
    void drop(const CacheKey& key, const StoredPointer& stored);

    /// Removes the responses of `key`.
    void remove(const CacheKey& key);
    /// Removes the responses of `key`, and those of the same URL for requests without credentials.
    void invalidate(const CacheKey& key);
    /// Removes the responses whose keys begin with `prefix`; all of them if it is empty.
    void removeAll(std::string_view prefix);

    void setCapacity(std::size_t capacity);
    std::size_t capacity() const;
    std::size_t usage() const;
    const std::shared_ptr<CacheStore>& store() const noexcept { return store_; }

    void countHit() noexcept { ++hits_; }
    void countMiss() noexcept { ++misses_; }
    std::uint64_t hits() const noexcept { return hits_.load(); }
    std::uint64_t misses() const noexcept { return misses_.load(); }

    /// Whether the caller should revalidate `stored` in the background; false if a revalidation is already running.
    bool beginRevalidation(const StoredPointer& stored);
    void endRevalidation(const StoredPointer& stored);
    /// Waits until no revalidation runs in the background; for tests. Returns whether that happened within `limit`.
    bool waitUntilQuiet(std::chrono::milliseconds limit);

private:
    struct Removal {
        std::uint64_t moment;
        std::string prefix;
        bool isWholeKey;
    };

    void noteChange();
    void noteRemoval(std::string prefix, bool isWholeKey);
    bool wasRemovedSince(const CacheKey& key, std::uint64_t begun) const;
    std::vector<StoredPointer> take(const CacheKey& key, const std::vector<CacheRecord>& records,
                                    std::uint64_t begun);

    const ForkMark mark_{};
    const CacheClock clock_;
    const std::shared_ptr<CacheStore> store_;
    std::atomic<std::size_t> count_ = 0;
    std::atomic<std::uint64_t> hits_ = 0;
    std::atomic<std::uint64_t> misses_ = 0;
    std::atomic<std::uint64_t> removalCount_ = 0;
    std::atomic<std::uint64_t> changes_ = 0;

    mutable std::mutex mutex_;
    MemoryStore memory_;
    // The latest removals. A request that began before the first of them counts as affected.
    std::deque<Removal> removals_;
    std::set<StoredPointer> revalidating_;
    std::condition_variable quiet_;
};

}  // namespace VanticRestKit::detail
