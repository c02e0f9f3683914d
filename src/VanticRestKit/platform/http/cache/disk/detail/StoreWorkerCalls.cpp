#include <VanticRestKit/platform/http/cache/disk/detail/StoreWorker.h>

#include <sqlite3.h>
#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

using Kind = StoreCall::Kind;

/// The maximum number of uses that wait to be written; a crash loses them.
constexpr std::size_t maxUnwrittenUses = 64;

bool isChange(const StoreCall& call) noexcept { return call.kind != Kind::read && call.kind != Kind::flush; }

bool stores(const StoreCall& call) noexcept { return call.kind == Kind::write; }

}  // namespace

void StoreWorker::perform(std::vector<StoreCall>& calls) {
    for (auto next = calls.begin(); next != calls.end();) {
        // Consecutive changes are one transaction.
        const auto end = std::find_if_not(next, calls.end(), isChange);
        if (end != next) {
            write({next, end});
            next = end;
            continue;
        }
        if (next->kind == Kind::read) {
            read(*next);
        } else {
            if (!used_.empty()) write({});
            next->done();
        }
        ++next;
    }
    if (used_.size() >= maxUnwrittenUses) write({});
}

void StoreWorker::read(StoreCall& call) {
    CacheDatabase::Found found;
    if (access(false) == Access::ready) {
        const int result = database_.find(call.record.key, found);
        if (result != SQLITE_OK) {
            found = {};
            if (!handleDamage(result) && !handleLostLock(result)) reportFault(result);
        }
        used_.insert(used_.end(), found.ids.begin(), found.ids.end());
        if (!found.damaged.empty()) removeDamaged(found.damaged);
    }
    call.found(std::move(found.records));
}

void StoreWorker::removeDamaged(const std::vector<std::int64_t>& ids) {
    for (const std::int64_t id : ids) database_.remove(id);
    const auto before = std::exchange(reported_, std::nullopt);
    report(DiskCacheErrorCode::damagedRecord, "a record does not match its checksum");
    reported_ = before;
    updateUsage();
}

void StoreWorker::write(std::span<StoreCall> calls) {
    const bool make = std::any_of(calls.begin(), calls.end(), stores);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const Access got = access(make);
        if (got == Access::absent) return;
        if (got == Access::failed) break;
        const int result = transact(calls);
        if (result == SQLITE_OK) {
            if (!calls.empty()) reported_.reset();
            updateUsage();
            return;
        }
        if (handleDamage(result) || handleLostLock(result) || folder_.identity() != identity_) continue;
        if ((result & 0xff) == SQLITE_FULL && calls.size() > 1) {
            // Some of them may fit or need no space.
            for (StoreCall& call : calls) write({&call, 1});
            return;
        }
        reportFault(result);
        break;
    }
    if (!calls.empty()) forget(calls);
}

int StoreWorker::transact(std::span<const StoreCall> calls) {
    int result = database_.begin();
    if (result == SQLITE_OK) result = touchUsed();
    for (auto call = calls.begin(); result == SQLITE_OK && call != calls.end(); ++call) result = apply(*call);
    if (result == SQLITE_OK) result = database_.commit();
    database_.rollback();
    // The records are already stored, so a failure here does not matter.
    if (result == SQLITE_OK) handleLostLock(database_.shrink());
    return result;
}

int StoreWorker::touchUsed() {
    int result = SQLITE_OK;
    for (const std::int64_t id : used_) {
        if (result == SQLITE_OK) result = database_.touch(id);
    }
    used_.clear();
    return result;
}

int StoreWorker::apply(const StoreCall& call) {
    const CacheRecord& record = call.record;
    switch (call.kind) {
        case Kind::write: return database_.write(record, capacity_);
        case Kind::writeHead: return database_.writeHead(record);
        case Kind::removeRecord: return database_.remove(record.key, record.variant);
        case Kind::remove: return database_.remove(record.key);
        case Kind::removeAll: return database_.removeAll(record.key);
        case Kind::read:
        case Kind::flush: break;
    }
    return SQLITE_OK;
}

void StoreWorker::forget(std::span<const StoreCall> calls) {
    if (!database_.isOpen()) {
        mustForgetAll_ = true;
        return;
    }
    if (tryToForget(calls) == SQLITE_OK) return;
    // Removing the file needs no disk space. Other processes notice that it is gone and create a new one.
    database_.close();
    used_.clear();
    const CacheFolder::Lock lock(folder_, limits_.busyTimeout);
    folder_.removeFile();
    usage_.store(0, std::memory_order_relaxed);
}

int StoreWorker::tryToForget(std::span<const StoreCall> calls) {
    // Reading needs no disk space and no lock, and usually there is nothing to remove.
    bool isThere = false;
    for (const StoreCall& call : calls) {
        bool is = false;
        const bool byPrefix = call.kind == Kind::remove || call.kind == Kind::removeAll;
        const int result = byPrefix ? database_.containsPrefix(call.record.key, is)
                                    : database_.contains(call.record.key, call.record.variant, is);
        if (result != SQLITE_OK) return result;
        isThere = isThere || is;
    }
    if (!isThere) return SQLITE_OK;
    database_.checkpoint();
    int result = database_.begin();
    for (auto call = calls.begin(); result == SQLITE_OK && call != calls.end(); ++call) {
        const bool isStored = call->kind == Kind::write || call->kind == Kind::writeHead;
        result = isStored ? database_.remove(call->record.key, call->record.variant) : apply(*call);
    }
    if (result == SQLITE_OK) result = database_.commit();
    database_.rollback();
    return result;
}

}  // namespace VanticRestKit::detail
