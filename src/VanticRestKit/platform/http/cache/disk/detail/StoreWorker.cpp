#include <VanticRestKit/platform/http/cache/disk/detail/StoreWorker.h>

#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/http/cache/detail/DiskCacheErrors.h>

#include <sqlite3.h>
#include <cstring>
#include <utility>

namespace VanticRestKit::detail {

namespace {

bool isDamage(int result) noexcept {
    switch (result & 0xff) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        // The tables do not have the expected schema, or contain an absurd length.
        case SQLITE_ERROR:
        case SQLITE_TOOBIG:
        case SQLITE_CONSTRAINT:
        case SQLITE_MISMATCH: return true;
        default: return false;
    }
}

DiskCacheErrorCode codeOf(int result) noexcept {
    switch (result & 0xff) {
        case SQLITE_FULL: return DiskCacheErrorCode::diskFull;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL: return DiskCacheErrorCode::busy;
        case SQLITE_CANTOPEN:
        case SQLITE_PERM: return DiskCacheErrorCode::folderUnavailable;
        default: return DiskCacheErrorCode::ioFailed;
    }
}

/// SQLite keeps its open files and locks in process-wide variables, which a forked child inherits in any state. So only
/// the process that used SQLite first may continue to use it.
bool mayUseSqlite() noexcept {
    static std::atomic<std::uint64_t> user = 0;
    const std::uint64_t self = forkCount() + 1;
    std::uint64_t known = 0;
    return user.compare_exchange_strong(known, self) || known == self;
}

}  // namespace

StoreWorker::StoreWorker(std::string folder, std::uint64_t capacity, DiskCacheReport report,
                         const DiskCacheLimits& limits)
    : folder_(std::move(folder)), capacity_(capacity), limits_(limits), report_(std::move(report)) {}

void StoreWorker::warmUp() {
    if (access(false) != Access::ready) return;
    // The capacity may be smaller than the last time.
    if (usage() > capacity_ && database_.begin() == SQLITE_OK) {
        const int result = database_.evictTo(capacity_);
        if (result == SQLITE_OK) database_.commit();
        database_.rollback();
        if (result == SQLITE_OK) database_.shrink();
    }
    updateUsage();
}

void StoreWorker::close() {
    if (!used_.empty()) write({});
    database_.close();
}

StoreWorker::Access StoreWorker::access(bool make) {
    const FileIdentity now = folder_.identity();
    if (database_.isOpen()) {
        if (now == identity_) return Access::ready;
        // Another process has set the file aside, or a user has removed it.
        database_.close();
        used_.clear();
    }
    if (!now.isThere) {
        usage_.store(0, std::memory_order_relaxed);
        if (!make) return Access::absent;
    }
    if (!mayUseSqlite()) {
        report(DiskCacheErrorCode::forked, "the parent process of this fork uses the cache");
        return Access::failed;
    }
    if (make) {
        if (const int error = folder_.make(); error != 0) {
            report(DiskCacheErrorCode::folderUnavailable, std::strerror(error));
            return Access::failed;
        }
    }
    const CacheFolder::Lock lock(folder_, limits_.busyTimeout);
    for (int attempt = 0; attempt < 3; ++attempt) {
        const Access got = open();
        if (got != Access::absent) return got;
        if (!make) return Access::absent;
        if (const int error = folder_.make(); error != 0) break;
    }
    report(DiskCacheErrorCode::folderUnavailable, "the file keeps disappearing");
    return Access::failed;
}

StoreWorker::Access StoreWorker::open() {
    identity_ = folder_.identity();
    if (!identity_.isThere) return Access::absent;
    if (!identity_.isRegular) {
        setAside(CacheDatabase::Content::foreign, "not a regular file");
        return folder_.identity().isThere ? Access::failed : Access::absent;
    }
    folder_.restrictModes();
    int result = SQLITE_OK;
    const CacheDatabase::Content content = database_.open(folder_.file(), limits_, result);
    if (content == CacheDatabase::Content::ours) {
        if (std::exchange(mustForgetAll_, false)) {
            database_.close();
            folder_.removeFile();
            return Access::absent;
        }
        updateUsage();
        return Access::ready;
    }
    const std::string reason = content == CacheDatabase::Content::unreadable ? database_.message() : "";
    database_.close();
    if (content == CacheDatabase::Content::unreadable && !isDamage(result)) {
        report(codeOf(result), reason);
        return Access::failed;
    }
    const bool isDatabase = (result & 0xff) != SQLITE_NOTADB;
    setAside(isDatabase ? content : CacheDatabase::Content::foreign, reason);
    return folder_.identity().isThere ? Access::failed : Access::absent;
}

void StoreWorker::setAside(CacheDatabase::Content content, const std::string& reason) {
    using Content = CacheDatabase::Content;
    const bool isForeign = content == Content::foreign;
    const bool isNewer = content == Content::newer;
    // A damaged cache may be overwritten, which limits the space used; a file of another program must not be.
    const int error = folder_.setAside(isForeign ? ".foreign" : isNewer ? ".newer" : ".damaged", isForeign);
    usage_.store(0, std::memory_order_relaxed);
    if (error != 0) {
        report(DiskCacheErrorCode::folderUnavailable, std::strerror(error));
        return;
    }
    reported_.reset();
    report(isForeign ? DiskCacheErrorCode::foreignFile
           : isNewer ? DiskCacheErrorCode::newerFile
                     : DiskCacheErrorCode::damagedFile,
           reason);
    reported_.reset();
}

void StoreWorker::giveUpDamagedFile() {
    const std::string reason = database_.message();
    database_.rollback();
    database_.close();
    used_.clear();
    const CacheFolder::Lock lock(folder_, limits_.busyTimeout);
    if (folder_.identity() == identity_) setAside(CacheDatabase::Content::unreadable, reason);
}

bool StoreWorker::handleDamage(int result) {
    if (!isDamage(result)) return false;
    giveUpDamagedFile();
    return true;
}

bool StoreWorker::handleLostLock(int result) {
    if ((result & 0xff) != SQLITE_PROTOCOL) return false;
    database_.close();
    used_.clear();
    return true;
}

void StoreWorker::updateUsage() {
    std::uint64_t bytes = 0;
    if (!database_.isOpen() || database_.usage(bytes) != SQLITE_OK) return;
    usage_.store(bytes, std::memory_order_relaxed);
}

void StoreWorker::reportFault(int result) { report(codeOf(result), database_.message()); }

void StoreWorker::report(DiskCacheErrorCode code, const std::string& reason) {
    if (reported_ == code) return;
    reported_ = code;
    if (report_) report_(makeDiskCacheError(code, folder_.file(), reason));
}

}  // namespace VanticRestKit::detail
