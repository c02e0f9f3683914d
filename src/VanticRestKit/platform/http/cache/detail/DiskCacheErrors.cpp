#include <VanticRestKit/platform/http/cache/detail/DiskCacheErrors.h>

#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {

std::string_view descriptionOf(DiskCacheErrorCode code) {
    switch (code) {
        case DiskCacheErrorCode::unsupported:
            return "This build of VanticRestKit cannot keep a cache on disk.";
        case DiskCacheErrorCode::folderUnavailable: return "The folder of the cache cannot be used.";
        case DiskCacheErrorCode::diskFull: return "The disk is full; the cache stores nothing.";
        case DiskCacheErrorCode::ioFailed: return "The file of the cache could not be read or written.";
        case DiskCacheErrorCode::busy: return "Another process keeps the file of the cache locked.";
        case DiskCacheErrorCode::damagedFile:
            return "The file of the cache was damaged and has been set aside.";
        case DiskCacheErrorCode::foreignFile:
            return "The file of the cache was not made by VanticRestKit and has been set aside.";
        case DiskCacheErrorCode::newerFile:
            return "The file of the cache was made by a newer version and has been set aside.";
        case DiskCacheErrorCode::damagedRecord: return "A damaged record of the cache has been removed.";
        case DiskCacheErrorCode::forked:
            return "A process made by fork cannot use its parent's cache on disk.";
    }
    return "unknown error";
}

}  // namespace

Error makeDiskCacheError(DiskCacheErrorCode code, std::string_view path, std::string_view reason) {
    Dictionary userInfo;
    userInfo.emplace(NSLocalizedDescriptionKey, descriptionOf(code));
    userInfo.emplace(NSURLErrorFailingURLStringErrorKey, path);
    if (!reason.empty()) userInfo.emplace(NSDebugDescriptionKey, reason);
    return NSError(std::string(DiskCacheErrorDomain), static_cast<std::int64_t>(code), std::move(userInfo));
}

}  // namespace VanticRestKit::detail
