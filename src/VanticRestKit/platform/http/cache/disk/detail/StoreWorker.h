#pragma once

/// \file
/// `StoreWorker`: what the thread of a store on disk does.

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

/// Opens the file when it is needed, carries calls out, and decides what becomes of a fault. For one thread at a time,
/// except for `usage`.
class StoreWorker {
public:
    StoreWorker(std::string folder, std::uint64_t capacity, DiskCacheReport report,
                const DiskCacheLimits& limits);

    /// Opens the file if it is there, so that the first read need not.
    void warmUp();
    void perform(std::vector<StoreCall>& calls);
    void close();
    std::uint64_t usage() const noexcept { return usage_.load(std::memory_order_relaxed); }

private:
    enum class Access { ready, absent, failed };

    /// Has the file open, if it is there or if it is to be made.
    Access access(bool make);
    Access open();
    void setAside(CacheDatabase::Content content, const std::string& reason);
    /// Closes, and renames the file if it is still the one that was open.
    void giveUpDamagedFile();

    void read(StoreCall& call);
    void removeDamaged(const std::vector<std::int64_t>& ids);
    void write(std::span<StoreCall> calls);
    int transact(std::span<const StoreCall> calls);
    int apply(const StoreCall& call);
    int touchUsed();
    /// After changes that could not be made: what they were to remove or to replace must not be found again.
    void forget(std::span<const StoreCall> calls);
    int tryToForget(std::span<const StoreCall> calls);
    void updateUsage();

    /// Whether it is damage, and the file has been set aside for it.
    bool handleDamage(int result);
    void reportFault(int result);
    void report(DiskCacheErrorCode code, const std::string& reason);

    const CacheFolder folder_;
    const std::uint64_t capacity_;
    const DiskCacheLimits limits_;
    DiskCacheReport report_;
    CacheDatabase database_;
    /// The file that is open.
    FileIdentity identity_;
    /// Records that were read and are not yet marked as used.
    std::vector<std::int64_t> used_;
    /// A change could not be made because the file could not be opened: what it holds is out of date.
    bool mustForgetAll_ = false;
    /// The fault that lasts and has been reported.
    std::optional<DiskCacheErrorCode> reported_;
    std::atomic<std::uint64_t> usage_ = 0;
};

}  // namespace VanticRestKit::detail
