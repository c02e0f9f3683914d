#pragma once

/// \file
/// `CacheStore`: where a cache keeps responses beyond the life of the process.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// One stored response as a store sees it: a key, and bytes that only the cache can read.
struct CacheRecord {
    /// The key: the partition and the URL.
    std::string key{};
    /// Distinguishes the responses of one key; a record replaces the one with the same key and variant.
    std::string variant{};
    /// The status, headers and times in the cache's own format.
    Data head{};
    Data body{};
};

/// Keeps records up to a capacity in bytes, and removes the least recently used beyond it. Every call except `flush`
/// returns at once; the work is done on the store's own thread, in the order of the calls. Thread-safe.
class CacheStore {
public:
    using Found = UniqueFunction<void(std::vector<CacheRecord>)>;

    CacheStore() = default;
    CacheStore(const CacheStore&) = delete;
    CacheStore& operator=(const CacheStore&) = delete;
    virtual ~CacheStore() = default;

    /// Passes all records of `key` to `found`, on the store's thread, and counts them as used. Passes none if the store
    /// cannot be read.
    virtual void read(std::string key, Found found) = 0;
    virtual void write(CacheRecord record) = 0;
    /// Replaces the head of a record but not its body. Does nothing if there is no record with that key and variant, or
    /// if it has a different body: another process may have written one meanwhile.
    virtual void writeHead(CacheRecord record) = 0;
    virtual void remove(std::string key) = 0;
    /// Removes all records whose key begins with `prefix`; all records if it is empty.
    virtual void removeAll(std::string prefix) = 0;
    /// How many bytes the records take, as counted against the capacity.
    virtual std::uint64_t currentUsage() const = 0;
    /// How many writes were dropped because too many bytes waited to be written. The records that they would have
    /// replaced are removed.
    virtual std::uint64_t droppedWrites() const { return 0; }
    /// Blocks until all previous calls are done: for tests, and before the process ends.
    virtual void flush() = 0;
};

}  // namespace VanticRestKit::detail
