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

/// Functions that return an `int` return a result code of SQLite. Statements outside of `begin` and `commit` are
/// transactions of their own.
///
/// Keys and variants are compared as bytes. Each record has a checksum of its head and one of its body; both include
/// key and variant, so that bytes of another record do not pass. The order of use is a counter in the file, not a
/// time, so that it is the same for all processes and no clock can disturb it.
class CacheDatabase {
public:
    /// What a file turned out to be.
    enum class Content { ours, foreign, newer, unreadable };

    /// Opens a file that exists, and makes the tables in an empty one. `result` is set if it is unreadable.
    Content open(const std::string& path, const DiskCacheLimits& limits, int& result);
    void close() noexcept;
    bool isOpen() const noexcept { return connection_.isOpen(); }
    std::string message() const { return connection_.message(); }

    int begin() noexcept;
    int commit() noexcept;
    /// Does nothing outside of a transaction.
    void rollback() noexcept;

    /// What `find` found out about the records of a key.
    struct Found {
        std::vector<CacheRecord> records;
        /// Those of the records.
        std::vector<std::int64_t> ids;
        /// Of those that do not fit their checksums.
        std::vector<std::int64_t> damaged;
    };
    int find(std::string_view key, Found& found);
    int contains(std::string_view key, std::string_view variant, bool& is);
    int containsPrefix(std::string_view prefix, bool& is);

    /// Makes space by removing what was used least recently. A record larger than the capacity is not stored, but
    /// removes the one that it would replace.
    int write(const CacheRecord& record, std::uint64_t capacity);
    /// Does nothing if the record has another body.
    int writeHead(const CacheRecord& record);
    int remove(std::string_view key);
    int remove(std::string_view key, std::string_view variant);
    int remove(std::int64_t id);
    int removeAll(std::string_view prefix);
    /// Marks a record as the one used last.
    int touch(std::int64_t id);

    /// Removes records, those used least recently first, until they take no more than `capacity`.
    int evictTo(std::uint64_t capacity);
    /// Gives free pages back to the file system if there are many, some megabytes at a time.
    int shrink();
    /// Has the log written into the file, so that its space can be used again.
    void checkpoint() noexcept;
    /// The bytes of the pages in use beyond those of an empty file.
    int usage(std::uint64_t& bytes) noexcept;

private:
    int configure(const DiskCacheLimits& limits);
    int makeTables();
    int prepareAll();
    int pages(std::int64_t& used, std::int64_t& free) noexcept;
    int evictBatch(std::uint64_t excess, bool& isEmpty);

    // Before the statements, which are destroyed first.
    SqliteConnection connection_;
    SqliteStatement begin_, commit_, rollback_, find_, contains_, insert_, insertBody_, updateHead_, touch_;
    SqliteStatement removeKey_, removeRecord_, removeId_, oldest_, pageCount_, freePages_;
};

}  // namespace VanticRestKit::detail
