#pragma once

/// \file
/// The errors of a disk cache: their domain and codes.

#include <cstdint>
#include <string_view>

namespace VanticRestKit {

/// The domain of every error that a disk cache reports.
inline constexpr std::string_view DiskCacheErrorDomain = "VanticRestKit.DiskCache";

/// What happened, as the `code()` of an `Error` of the domain `DiskCacheErrorDomain`. None of these makes a load fail:
/// the cache continues in memory. The user information holds a description, the path as
/// `NSURLErrorFailingURLStringErrorKey`, and the reason given by the system or SQLite as `NSDebugDescription`.
enum class DiskCacheErrorCode : std::int64_t {
    /// This build of the library has no disk cache. Nothing is stored on disk.
    unsupported = 1,
    /// The folder cannot be created, or the file in it cannot be opened. Nothing is stored until that succeeds.
    folderUnavailable = 2,
    /// The disk is full. Nothing more is stored until there is space.
    diskFull = 3,
    /// The file could not be read or written for another reason.
    ioFailed = 4,
    /// Other processes kept the file locked for too long. The pending writes are not stored.
    busy = 5,
    /// The file was damaged. It was renamed, and a new one was created.
    damagedFile = 6,
    /// The file was not made by this library. It was renamed, and a new one was created.
    foreignFile = 7,
    /// The file was made by a newer version of the library. It was renamed, and a new one was created.
    newerFile = 8,
    /// A record did not match its checksum. It was removed.
    damagedRecord = 9,
    /// The process was forked from one that had a disk cache open, which SQLite does not support. The child stores
    /// nothing.
    forked = 10,
};

}  // namespace VanticRestKit
