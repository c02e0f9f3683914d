#pragma once

/// \file
/// `MemoryStore`: answers in memory, up to a number of bytes.

#include <VanticRestKit/platform/http/cache/detail/CacheKey.h>
#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace VanticRestKit::detail {

/// Keeps answers, and gives up those that were used least recently when they take more than its capacity. What an
/// answer takes is counted with its key and with the blocks of the containers in here. To find, to add and to remove
/// one takes a time that does not depend on how many there are. Not for several threads at once.
class MemoryStore {
public:
    /// What was removed. Answers may be large, so their memory is freed where no lock is held.
    using Removed = std::vector<StoredPointer>;

    explicit MemoryStore(std::size_t capacity) : capacity_(capacity) {}
    MemoryStore(const MemoryStore&) = delete;
    MemoryStore& operator=(const MemoryStore&) = delete;

    /// The answer of `key` that fits `request` and came last, or null. It counts as used.
    StoredPointer find(const CacheKey& key, const URLRequest& request);

    /// All answers of `key`. None of them counts as used.
    std::vector<StoredPointer> all(const CacheKey& key) const;

    /// Adds an answer in place of those of `key` that have the same variant or fit `request`, if there is one. An
    /// answer that takes more than half the capacity is not kept. Returns whether it is.
    bool put(const CacheKey& key, StoredPointer response, const URLRequest* request, Removed& removed);

    /// Puts `replacement` in the place of `stored`, if that is still there.
    bool replace(const CacheKey& key, const StoredPointer& stored, StoredPointer replacement,
                 Removed& removed);

    void remove(const CacheKey& key, Removed& removed);
    /// Removes one answer, if it is there.
    void remove(const CacheKey& key, const StoredPointer& stored, Removed& removed);
    /// Removes the answers of all partitions that begin with `prefix`; all answers for an empty one.
    void removeAll(std::string_view prefix, Removed& removed);

    void setCapacity(std::size_t capacity, Removed& removed);
    std::size_t capacity() const noexcept { return capacity_; }
    std::size_t usage() const noexcept { return usage_; }
    std::size_t count() const noexcept { return entries_.size(); }

private:
    struct Entry;
    struct Partition;
    using Entries = std::list<Entry>;
    /// The answers of one URL to the requests of one partition.
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
    // Those used last come first.
    Entries entries_;
    Partitions partitions_;
};

}  // namespace VanticRestKit::detail
