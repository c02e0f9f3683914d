#pragma once

/// \file
/// `MemoryStore`: responses in memory, up to a capacity in bytes.

#include <VanticRestKit/platform/http/cache/detail/CacheKey.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace VanticRestKit::detail {

/// Keeps responses, and removes the least recently used ones when they take more than the capacity. The cost of a
/// response includes its key and the overhead of the containers. Finding, adding and removing take constant time. Not
/// thread-safe.
class MemoryStore {
public:
    /// The removed responses. They may be large, so the caller frees them after releasing its lock.
    using Removed = std::vector<StoredPointer>;

    explicit MemoryStore(std::size_t capacity) : capacity_(capacity) {}
    MemoryStore(const MemoryStore&) = delete;
    MemoryStore& operator=(const MemoryStore&) = delete;

    /// The latest response of `key` that matches `request`, or null. Counts as a use of it.
    StoredPointer find(const CacheKey& key, const URLRequest& request);

    /// All responses of `key`. Does not count as a use of them.
    std::vector<StoredPointer> all(const CacheKey& key) const;

    /// Adds a response, replacing those of `key` that have the same variant or match `request`, which may be null. A
    /// response that takes more than half the capacity is not kept. Returns whether it was kept.
    bool put(const CacheKey& key, StoredPointer response, const URLRequest* request, Removed& removed);

    /// Replaces `stored` with `replacement`, if it is still there.
    bool replace(const CacheKey& key, const StoredPointer& stored, StoredPointer replacement,
                 Removed& removed);

    void remove(const CacheKey& key, Removed& removed);
    /// Removes one response, if it is there.
    void remove(const CacheKey& key, const StoredPointer& stored, Removed& removed);
    /// Removes the responses of all partitions that begin with `prefix`; all responses if it is empty.
    void removeAll(std::string_view prefix, Removed& removed);

    void setCapacity(std::size_t capacity, Removed& removed);
    std::size_t capacity() const noexcept { return capacity_; }
    std::size_t usage() const noexcept { return usage_; }
    std::size_t count() const noexcept { return entries_.size(); }

private:
    struct Entry;
    struct Partition;
    using Entries = std::list<Entry>;
    /// The responses of one URL in one partition.
    using Variants = std::vector<Entries::iterator>;
    using Urls = std::unordered_map<std::string, Variants>;
    using Partitions = std::unordered_map<std::string, Urls>;

    struct Entry {
        StoredPointer response;
        std::size_t cost;
        Partitions::value_type* partition;
        Urls::value_type* url;
    };

    Variants* variantsOf(const CacheKey& key);
    const Variants* variantsOf(const CacheKey& key) const;
    void remove(Entries::iterator entry, Removed& removed);
    void shrink(Removed& removed);

    std::size_t capacity_;
    std::size_t usage_ = 0;
    // Most recently used first.
    Entries entries_;
    Partitions partitions_;
};

}  // namespace VanticRestKit::detail
