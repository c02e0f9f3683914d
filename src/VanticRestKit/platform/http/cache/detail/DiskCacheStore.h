#pragma once

/// \file
/// `openDiskCacheStore`: opens the disk store of a cache, if this build of the library supports it.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace VanticRestKit::detail {

/// Called on the store's thread with an error of the domain `DiskCacheErrorDomain`. A lasting fault is reported once,
/// and again if it returns after a successful write.
using DiskCacheReport = UniqueFunction<void(const Error&)>;

/// Limits, which only tests change.
struct DiskCacheLimits {
    /// The maximum size of the records that wait to be written, in bytes. Beyond it the oldest are dropped.
    std::size_t maxPendingBytes = 16U << 20U;
    /// How long a call waits for locks of other processes.
    std::chrono::milliseconds busyTimeout{5000};
    /// The maximum number of pages of the file, after which the disk counts as full; 0 for no limit.
    int maxPages = 0;
};

/// Whether this build of the library supports a disk cache.
bool hasDiskCacheStore() noexcept;

/// Opens a store in a file of `folder`. Several stores may share a folder, in one or several processes.
///
/// The first write creates the folder and its parents with mode 0700, and the files in it with mode 0600. `capacity` is
/// the maximum size of the file in bytes, in addition to a log of at most a few megabytes. A record is either complete
/// or absent, even after a crash. Records that cannot be read count as absent, and records that cannot be written are
/// not stored; `report` is called for both. In a build without disk cache, `report` gets `unsupported`, and the store
/// stays empty.
///
/// A child made by `fork` finds the store empty and writes nothing.
std::shared_ptr<CacheStore> openDiskCacheStore(std::string folder, std::uint64_t capacity,
                                               DiskCacheReport report, const DiskCacheLimits& limits = {});

}  // namespace VanticRestKit::detail
