#include <VanticRestKit/platform/http/cache/detail/DiskCacheStore.h>

#include <VanticRestKit/platform/dispatch/DispatchGroup.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/cache/detail/DiskCacheErrors.h>
#ifdef VRK_HAS_DISK_CACHE
#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/http/cache/disk/detail/StoreCalls.h>
#include <VanticRestKit/platform/http/cache/disk/detail/StoreWorker.h>
#endif

#include <utility>
#include <vector>

namespace VanticRestKit::detail {

namespace {

#ifdef VRK_HAS_DISK_CACHE

/// Posts calls to the store's thread. The state that the thread works on stays alive until all calls are done.
class DiskCacheStore final : public CacheStore {
public:
    DiskCacheStore(std::string folder, std::uint64_t capacity, DiskCacheReport report,
                   const DiskCacheLimits& limits)
        : state_(std::make_shared<State>(std::move(folder), capacity, std::move(report), limits)) {
        queue_.async([state = state_] { state->worker.warmUp(); });
    }

    ~DiskCacheStore() override {
        if (mark_.isCurrent()) {
            queue_.async([state = std::move(state_)] { state->worker.close(); });
        } else {
            // In a forked child the state may be inconsistent, and only the parent may close the file. Leak it.
            static_cast<void>(new std::shared_ptr<State>(std::move(state_)));
        }
    }

    void read(std::string key, Found found) override {
        if (!mark_.isCurrent()) {
            queue_.async([found = std::move(found)]() mutable { found({}); });
            return;
        }
        post({.kind = Kind::read, .record = {.key = std::move(key)}, .found = std::move(found)});
    }

    void write(CacheRecord record) override { post({.kind = Kind::write, .record = std::move(record)}); }

    void writeHead(CacheRecord record) override {
        post({.kind = Kind::writeHead, .record = std::move(record)});
    }

    void remove(std::string key) override { post({.kind = Kind::remove, .record = {.key = std::move(key)}}); }

    void removeAll(std::string prefix) override {
        post({.kind = Kind::removeAll, .record = {.key = std::move(prefix)}});
    }

    std::uint64_t currentUsage() const override { return mark_.isCurrent() ? state_->worker.usage() : 0; }

    std::uint64_t droppedWrites() const override { return mark_.isCurrent() ? state_->calls.dropped() : 0; }

    void flush() override {
        // On the store's own thread it would wait for itself.
        if (!mark_.isCurrent() || queue_.isCurrent()) return;
        const DispatchGroup group;
        group.enter();
        post({.kind = Kind::flush, .done = [group] { group.leave(); }});
        group.wait();
    }

private:
    using Kind = StoreCall::Kind;

    struct State {
        State(std::string folder, std::uint64_t capacity, DiskCacheReport report,
              const DiskCacheLimits& limits)
            : calls(limits.maxPendingBytes), worker(std::move(folder), capacity, std::move(report), limits) {}

        void drain() {
            for (std::vector<StoreCall> taken = calls.take(); !taken.empty(); taken = calls.take()) {
                worker.perform(taken);
            }
        }

        StoreCalls calls;
        StoreWorker worker;
    };

    void post(StoreCall call) {
        if (!mark_.isCurrent()) return;
        if (state_->calls.push(std::move(call))) queue_.async([state = state_] { state->drain(); });
    }

    const ForkMark mark_{};
    const DispatchQueue queue_ = DispatchQueue::withOwnThread("vrk.http.cache");
    std::shared_ptr<State> state_;
};

#else

/// Stores nothing.
class DiskCacheStore final : public CacheStore {
public:
    DiskCacheStore(const std::string& folder, std::uint64_t, DiskCacheReport report, const DiskCacheLimits&) {
        if (!report) return;
        queue_.async([report = std::move(report), folder]() mutable {
            report(makeDiskCacheError(DiskCacheErrorCode::unsupported, folder, "built without SQLite"));
        });
    }

    void read(std::string, Found found) override {
        queue_.async([found = std::move(found)]() mutable { found({}); });
    }
    void write(CacheRecord) override {}
    void writeHead(CacheRecord) override {}
    void remove(std::string) override {}
    void removeAll(std::string) override {}
    std::uint64_t currentUsage() const override { return 0; }
    void flush() override {
        if (queue_.isCurrent()) return;
        const DispatchGroup group;
        group.enter();
        queue_.async([group] { group.leave(); });
        group.wait();
    }

private:
    const DispatchQueue queue_ = DispatchQueue::withOwnThread("vrk.http.cache");
};

#endif

}  // namespace

bool hasDiskCacheStore() noexcept {
#ifdef VRK_HAS_DISK_CACHE
    return true;
#else
    return false;
#endif
}

std::shared_ptr<CacheStore> openDiskCacheStore(std::string folder, std::uint64_t capacity,
                                               DiskCacheReport report, const DiskCacheLimits& limits) {
    return std::make_shared<DiskCacheStore>(std::move(folder), capacity, std::move(report), limits);
}

}  // namespace VanticRestKit::detail
