#pragma once

/// \file
/// `CacheStore`: where a cache keeps answers beyond the life of the process.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// One stored answer as a store sees it: bytes that only the cache reads, and by what they are found.
struct CacheRecord {
    /// What the answer is found by: the URL and whose answer it is.
    std::string key{};
    /// Which of the answers of one key this is; a record replaces the one of the same key and variant.
    std::string variant{};
    /// Status, headers and times in the cache's own form.
    Data head{};
    Data body{};
};

/// Keeps records up to a capacity in bytes and gives up those used least recently. Every call returns at once; the
/// work is done on the store's own thread, in the order of the calls. Any thread may call.
class CacheStore {
public:
    using Found = UniqueFunction<void(std::vector<CacheRecord>)>;

    CacheStore() = default;
    CacheStore(const CacheStore&) = delete;
    CacheStore& operator=(const CacheStore&) = delete;
    virtual ~CacheStore() = default;

    /// Gives all records of `key` to `found`, on the store's thread, and counts them as used. It gives none if the
    /// store cannot be read.
    virtual void read(std::string key, Found found) = 0;
    virtual void write(CacheRecord record) = 0;
    /// Replaces the head of a record and leaves its body. Does nothing if there is none of that key and variant, or if
    /// it has another body: another process may have written one since.
    virtual void writeHead(CacheRecord record) = 0;
    virtual void remove(std::string key) = 0;
    /// Removes all records whose key begins with `prefix`; all records for an empty one.
    virtual void removeAll(std::string prefix) = 0;
    /// How many bytes the records take, as they are counted against the capacity.
    virtual std::uint64_t currentUsage() const = 0;
    /// How many writes were dropped because too many bytes waited to be written. What they were to replace is removed.
    virtual std::uint64_t droppedWrites() const { return 0; }
    /// Blocks until all calls before this one are done: for tests and before the end of the process.
    virtual void flush() = 0;
};

}  // namespace VanticRestKit::detail
