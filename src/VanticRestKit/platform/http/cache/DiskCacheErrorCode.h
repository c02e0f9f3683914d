#pragma once

/// \file
/// What the disk part of a cache reports: the domain of its errors and their named codes.

#include <cstdint>
#include <string_view>

namespace VanticRestKit {

/// The domain of every error that the disk part of a cache reports.
inline constexpr std::string_view DiskCacheErrorDomain = "VanticRestKit.DiskCache";

/// What happened, as the `code()` of an `Error` of the domain `DiskCacheErrorDomain`. None of them fails a load: the
/// cache goes on with what it has in memory. The user information holds a description, the path as
/// `NSURLErrorFailingURLStringErrorKey`, and the reason that the system or SQLite gave as `NSDebugDescription`.
enum class DiskCacheErrorCode : std::int64_t {
    /// This build of the library has no disk part. Nothing is stored.
    unsupported = 1,
    /// The folder cannot be made, or the file in it cannot be opened. Nothing is stored until that succeeds.
    folderUnavailable = 2,
    /// The disk is full. What is not stored yet stays away until there is space.
    diskFull = 3,
    /// The file could not be read or written for another reason.
    ioFailed = 4,
    /// Other processes kept the file locked for too long. What was to be written meanwhile is not stored.
    busy = 5,
    /// The file was damaged. It was renamed and a new one begun.
    damagedFile = 6,
    /// A file of the same name was not made by this library. It was renamed and a new one begun.
    foreignFile = 7,
    /// The file was made by a newer version of the library. It was renamed and a new one begun.
    newerFile = 8,
    /// The bytes of one record did not fit their checksum. It was removed.
    damagedRecord = 9,
    /// The process was forked from one that had a cache on disk open, which SQLite does not allow for. Nothing is
    /// stored by the child.
    forked = 10,
};

}  // namespace VanticRestKit
