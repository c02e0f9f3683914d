#pragma once

/// \file
/// `CacheDatabase`: the records of a cache in one SQLite file.

#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>
#include <VanticRestKit/platform/http/cache/detail/DiskCacheStore.h>
#include <VanticRestKit/platform/http/cache/disk/detail/Sqlite.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// Functions that return an `int` return an SQLite result code. A statement outside `begin` and `commit` is its own
/// transaction.
///
/// Keys and variants are compared as bytes. Each record has a checksum of its head and one of its body; both include
/// the key and variant, so that bytes of another record are detected. The order of use is a counter in the file, not a
/// time, so that it is the same for all processes and independent of clocks.
class CacheDatabase {
public:
    /// What kind of file was found.
    enum class Content { ours, foreign, newer, unreadable };

    /// Opens an existing file, and creates the tables if it is empty. `result` is the result code if it is unreadable.
    Content open(const std::string& path, const DiskCacheLimits& limits, int& result);
    void close() noexcept;
    bool isOpen() const noexcept { return connection_.isOpen(); }
    std::string message() const { return connection_.message(); }

    int begin() noexcept;
    int commit() noexcept;
    /// Does nothing outside of a transaction.
    void rollback() noexcept;

    /// The records of a key.
    struct Found {
        std::vector<CacheRecord> records;
        /// The ids of `records`.
        std::vector<std::int64_t> ids;
        /// The ids of records that do not match their checksums.
        std::vector<std::int64_t> damaged;
    };
    int find(std::string_view key, Found& found);
    int contains(std::string_view key, std::string_view variant, bool& is);
    int containsPrefix(std::string_view prefix, bool& is);

    /// Makes space by removing the least recently used records. A record larger than the capacity is not stored, but
    /// the one that it would replace is removed.
    int write(const CacheRecord& record, std::uint64_t capacity);
    /// Does nothing if the record has another body.
    int writeHead(const CacheRecord& record);
    int remove(std::string_view key);
    int remove(std::string_view key, std::string_view variant);
    int remove(std::int64_t id);
    int removeAll(std::string_view prefix);
    /// Marks a record as the most recently used.
    int touch(std::int64_t id);

    /// Removes the least recently used records until the rest take at most `capacity`.
    int evictTo(std::uint64_t capacity);
    /// Returns free pages to the file system if there are many, a few megabytes at a time.
    int shrink();
    /// Writes the log into the file, so that its space can be reused.
    void checkpoint() noexcept;
    /// The size of the pages in use, not counting those of an empty file.
    int usage(std::uint64_t& bytes) noexcept;

private:
    int configure(const DiskCacheLimits& limits);
    int makeTables();
    int prepareAll();
    int pages(std::int64_t& used, std::int64_t& free) noexcept;
    int evictBatch(std::uint64_t excess, bool& isEmpty);

    // Declared before the statements, which must be destroyed first.
    SqliteConnection connection_;
    SqliteStatement begin_, commit_, rollback_, find_, contains_, insert_, insertBody_, updateHead_, touch_;
    SqliteStatement removeKey_, removeRecord_, removeId_, oldest_, pageCount_, freePages_;
};

}  // namespace VanticRestKit::detail
