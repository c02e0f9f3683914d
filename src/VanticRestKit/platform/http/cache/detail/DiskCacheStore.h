#pragma once

/// \file
/// `openDiskCacheStore`: the store of a cache in a folder, if this build of the library has one.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace VanticRestKit::detail {

/// Is called on the store's thread with an error of the domain `DiskCacheErrorDomain`. A fault that lasts is reported
/// once, and again if it comes back after a write has succeeded.
using DiskCacheReport = UniqueFunction<void(const Error&)>;

/// Limits that only tests change.
struct DiskCacheLimits {
    /// The bytes of records that wait to be written. With more, the oldest waiting ones are dropped.
    std::size_t maxPendingBytes = 16U << 20U;
    /// How long a call waits for other processes.
    std::chrono::milliseconds busyTimeout{5000};
    /// The pages that the file may have before the disk counts as full; 0 for no limit.
    int maxPages = 0;
};

/// Whether this build of the library can keep a cache on disk.
bool hasDiskCacheStore() noexcept;

/// A store in a file of `folder`. Several stores may share a folder, in one process or in several.
///
/// Nothing is made before the first write: then the folder and those above it, with mode 0700, and the files in it,
/// with mode 0600. `capacity` is in bytes of the file; a log of at most some megabytes comes on top. A record is
/// either whole or absent, also after a crash. What cannot be read counts as absent, and what cannot be written is not
/// stored; `report` is told. Without a disk part `report` is told `unsupported`, and the store stays empty.
///
/// A child made by `fork` finds the store empty and writes nothing.
std::shared_ptr<CacheStore> openDiskCacheStore(std::string folder, std::uint64_t capacity,
                                               DiskCacheReport report, const DiskCacheLimits& limits = {});

}  // namespace VanticRestKit::detail
