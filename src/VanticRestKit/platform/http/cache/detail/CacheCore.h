#pragma once

/// \file
/// `CacheCore`: what a `URLCache` and the sessions that use it share.

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

/// The answers in memory, the store beyond it if there is one, and counts. Any thread may call; the lock is held for
/// look-ups and small changes only. In a child made by `fork` it finds nothing and keeps nothing.
class CacheCore : public std::enable_shared_from_this<CacheCore> {
public:
    CacheCore(std::size_t capacity, std::shared_ptr<CacheStore> store, CacheClock clock);

    CacheTime now() const { return clock_(); }

    /// Whether a look-up cannot find anything.
    bool isEmpty() const noexcept { return !hasStore() && count_.load(std::memory_order_relaxed) == 0; }
    bool hasStore() const noexcept { return store_ != nullptr && mark_.isCurrent(); }

    /// What memory has of `key` for `request`, or null. `hasOthers` becomes true if there are only answers that do not
    /// fit the request.
    StoredPointer find(const CacheKey& key, const URLRequest& request, bool* hasOthers = nullptr);

    /// Grows with each change of what is in memory, so that a look-up need not be repeated while it stays the same.
    std::uint64_t changes() const noexcept { return changes_.load(std::memory_order_relaxed); }

    using Found = UniqueFunction<void(std::vector<StoredPointer>)>;
    /// Brings what the store has of `key` to memory and gives it to `found`, on the store's thread: also what is too
    /// large for memory, but not what memory has a newer one of.
    void read(const CacheKey& key, Found found);

    /// A moment in the order of removals. What was asked for before a removal must not be stored after it.
    std::uint64_t moment() const noexcept { return removalCount_.load(); }

    /// Stores the answer to `request`, which began at `begun`. Returns whether it did.
    bool put(const CacheKey& key, const StoredPointer& response, const URLRequest& request,
             std::uint64_t begun);
    /// Puts `replacement`, which has the same body, in the place of `stored`.
    bool update(const CacheKey& key, const StoredPointer& stored, StoredPointer replacement,
                std::uint64_t begun);
    /// Removes one answer that a newer one has outdated.
    void drop(const CacheKey& key, const StoredPointer& stored);

    /// Removes the answers of `key`.
    void remove(const CacheKey& key);
    /// Removes the answers of `key`, and of the same URL to requests without credentials.
    void invalidate(const CacheKey& key);
    /// Removes the answers whose keys begin with `prefix`; all of them for an empty one.
    void removeAll(std::string_view prefix);

    void setCapacity(std::size_t capacity);
    std::size_t capacity() const;
    std::size_t usage() const;
    const std::shared_ptr<CacheStore>& store() const noexcept { return store_; }

    void countHit() noexcept { ++hits_; }
    void countMiss() noexcept { ++misses_; }
    std::uint64_t hits() const noexcept { return hits_.load(); }
    std::uint64_t misses() const noexcept { return misses_.load(); }

    /// Whether the caller is to ask the server about `stored` in the background; false if that is under way.
    bool beginRevalidation(const StoredPointer& stored);
    void endRevalidation(const StoredPointer& stored);
    /// Waits until nothing is asked in the background; for tests. Whether that came to pass in time.
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
    // The latest ones. A request that began before the first of them is taken as one that they concern.
    std::deque<Removal> removals_;
    std::set<StoredPointer> revalidating_;
    std::condition_variable quiet_;
};

}  // namespace VanticRestKit::detail
