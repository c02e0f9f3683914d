#pragma once

/// \file
/// `StoreWorker`: the work of a disk store's thread.

#include <VanticRestKit/platform/http/cache/detail/DiskCacheStore.h>
#include <VanticRestKit/platform/http/cache/disk/detail/CacheDatabase.h>
#include <VanticRestKit/platform/http/cache/disk/detail/CacheFolder.h>
#include <VanticRestKit/platform/http/cache/disk/detail/StoreCalls.h>
#include <VanticRestKit/platform/http/cache/DiskCacheErrorCode.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Opens the file when it is needed, performs calls, and handles faults. For one thread at a time, except for `usage`.
class StoreWorker {
public:
    StoreWorker(std::string folder, std::uint64_t capacity, DiskCacheReport report,
                const DiskCacheLimits& limits);

    /// Opens the file if it exists, so that the first read does not have to.
    void warmUp();
    void perform(std::vector<StoreCall>& calls);
    void close();
    std::uint64_t usage() const noexcept { return usage_.load(std::memory_order_relaxed); }

private:
    enum class Access { ready, absent, failed };

    /// Opens the file if it exists, or creates it if `make`.
    Access access(bool make);
    Access open();
    void setAside(CacheDatabase::Content content, const std::string& reason);
    /// Closes the file, and renames it if it is still the one that was open.
    void giveUpDamagedFile();

    void read(StoreCall& call);
    void removeDamaged(const std::vector<std::int64_t>& ids);
    void write(std::span<StoreCall> calls);
    int transact(std::span<const StoreCall> calls);
    int apply(const StoreCall& call);
    int touchUsed();
    /// After changes have failed: ensures that the records that they should have removed or replaced are not found
    /// again.
    void forget(std::span<const StoreCall> calls);
    int tryToForget(std::span<const StoreCall> calls);
    void updateUsage();

    /// If `result` indicates damage, sets the file aside and returns true.
    bool handleDamage(int result);
    /// If `result` indicates that SQLite could not release a lock of the file, closes the file and returns true. If the
    /// file stayed open, each call would wait ten seconds for SQLite's own lock.
    bool handleLostLock(int result);
    void reportFault(int result);
    void report(DiskCacheErrorCode code, const std::string& reason);

    const CacheFolder folder_;
    const std::uint64_t capacity_;
    const DiskCacheLimits limits_;
    DiskCacheReport report_;
    CacheDatabase database_;
    /// The identity of the open file.
    FileIdentity identity_;
    /// Records that were read but not yet marked as used.
    std::vector<std::int64_t> used_;
    /// A change was lost because the file could not be opened, so its contents are out of date.
    bool mustForgetAll_ = false;
    /// The lasting fault that has been reported.
    std::optional<DiskCacheErrorCode> reported_;
    std::atomic<std::uint64_t> usage_ = 0;
};

}  // namespace VanticRestKit::detail
