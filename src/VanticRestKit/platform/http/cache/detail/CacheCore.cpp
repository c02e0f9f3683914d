#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>

#include <VanticRestKit/platform/http/cache/detail/CacheRecordForm.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

constexpr std::size_t maxRemovals = 64;

}  // namespace

CacheCore::CacheCore(std::size_t capacity, std::shared_ptr<CacheStore> store, CacheClock clock)
    : clock_(std::move(clock)), store_(std::move(store)), memory_(capacity) {}

StoredPointer CacheCore::find(const CacheKey& key, const URLRequest& request, bool* hasOthers) {
    if (!mark_.isCurrent()) return nullptr;
    const std::lock_guard lock(mutex_);
    StoredPointer found = memory_.find(key, request);
    if (!found && hasOthers != nullptr) *hasOthers = !memory_.all(key).empty();
    return found;
}

void CacheCore::read(const CacheKey& key, Found found) {
    store_->read(key.text(),
                 [self = shared_from_this(), key, begun = moment(), found = std::move(found)](
                     std::vector<CacheRecord> records) mutable { found(self->take(key, records, begun)); });
}

std::vector<StoredPointer> CacheCore::take(const CacheKey& key, const std::vector<CacheRecord>& records,
                                           std::uint64_t begun) {
    std::vector<StoredPointer> responses;
    for (const CacheRecord& record : records) {
        if (StoredPointer response = responseOf(record)) responses.push_back(std::move(response));
    }
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    if (wasRemovedSince(key, begun)) return {};
    const std::vector<StoredPointer> present = memory_.all(key);
    // Responses that arrived from the server meanwhile are newer.
    std::erase_if(responses, [&present](const StoredPointer& response) {
        return std::any_of(present.begin(), present.end(), [&response](const auto& other) {
            return other->variant() == response->variant();
        });
    });
    for (const StoredPointer& response : responses) memory_.put(key, response, nullptr, removed);
    noteChange();
    return responses;
}

// The following functions call the store under the lock, so that it is changed in the same order as memory: headers
// must not be written over those of a newer body.

bool CacheCore::put(const CacheKey& key, const StoredPointer& response, const URLRequest& request,
                    std::uint64_t begun) {
    if (!mark_.isCurrent()) return false;
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    if (wasRemovedSince(key, begun)) return false;
    const bool isKept = memory_.put(key, response, &request, removed);
    noteChange();
    if (store_) store_->write(recordOf(key.text(), *response));
    return isKept || store_;
}

bool CacheCore::update(const CacheKey& key, const StoredPointer& stored, StoredPointer replacement,
                       std::uint64_t begun) {
    if (!mark_.isCurrent()) return false;
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    if (wasRemovedSince(key, begun)) return false;
    // Another response may have replaced it meanwhile.
    if (!memory_.replace(key, stored, replacement, removed)) return false;
    noteChange();
    if (store_) store_->writeHead(recordOf(key.text(), *replacement));
    return true;
}

void CacheCore::drop(const CacheKey& key, const StoredPointer& stored) {
    if (!mark_.isCurrent()) return;
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    memory_.remove(key, stored, removed);
    noteChange();
    // The store cannot remove a single variant.
    if (store_) store_->remove(key.text());
}

void CacheCore::remove(const CacheKey& key) {
    if (!mark_.isCurrent()) return;
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    memory_.remove(key, removed);
    noteRemoval(key.text(), true);
    noteChange();
    if (store_) store_->remove(key.text());
}

void CacheCore::invalidate(const CacheKey& key) {
    remove(key);
    if (key.partition != CachePartition()) remove({.partition = {}, .url = key.url});
}

void CacheCore::removeAll(std::string_view prefix) {
    if (!mark_.isCurrent()) return;
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    memory_.removeAll(prefix, removed);
    noteRemoval(std::string(prefix), false);
    noteChange();
    if (store_) store_->removeAll(std::string(prefix));
}

void CacheCore::noteChange() {
    count_ = memory_.count();
    ++changes_;
}

void CacheCore::noteRemoval(std::string prefix, bool isWholeKey) {
    removals_.push_back({.moment = ++removalCount_, .prefix = std::move(prefix), .isWholeKey = isWholeKey});
    if (removals_.size() > maxRemovals) removals_.pop_front();
}

bool CacheCore::wasRemovedSince(const CacheKey& key, std::uint64_t begun) const {
    if (begun == removalCount_.load() || removals_.empty()) return false;
    if (begun + 1 < removals_.front().moment) return true;
    const std::string text = key.text();
    return std::any_of(removals_.begin(), removals_.end(), [&](const Removal& removal) {
        if (removal.moment <= begun) return false;
        return removal.isWholeKey ? text == removal.prefix : text.starts_with(removal.prefix);
    });
}

void CacheCore::setCapacity(std::size_t capacity) {
    if (!mark_.isCurrent()) return;
    MemoryStore::Removed removed;
    const std::lock_guard lock(mutex_);
    memory_.setCapacity(capacity, removed);
    noteChange();
}

std::size_t CacheCore::capacity() const {
    if (!mark_.isCurrent()) return 0;
    const std::lock_guard lock(mutex_);
    return memory_.capacity();
}

std::size_t CacheCore::usage() const {
    if (!mark_.isCurrent()) return 0;
    const std::lock_guard lock(mutex_);
    return memory_.usage();
}

bool CacheCore::beginRevalidation(const StoredPointer& stored) {
    if (!mark_.isCurrent()) return false;
    const std::lock_guard lock(mutex_);
    return revalidating_.insert(stored).second;
}

void CacheCore::endRevalidation(const StoredPointer& stored) {
    const std::lock_guard lock(mutex_);
    revalidating_.erase(stored);
    if (revalidating_.empty()) quiet_.notify_all();
}

bool CacheCore::waitUntilQuiet(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex_);
    return quiet_.wait_for(lock, limit, [this] { return revalidating_.empty(); });
}

}  // namespace VanticRestKit::detail
