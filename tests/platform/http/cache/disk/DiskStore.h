#pragma once

/// \file
/// A store in its own temporary folder, and the errors that it reported.

#include <VanticRestKit/platform/http/cache/detail/DiskCacheStore.h>
#include <VanticRestKit/platform/http/cache/DiskCacheErrorCode.h>

#include <gtest/gtest.h>
#include <platform/http/cache/disk/DiskRecords.h>
#include <support/Event.h>

#include <sys/stat.h>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

class TemporaryFolder {
public:
    TemporaryFolder() {
        char pattern[] = "/tmp/vrk-disk-XXXXXX";
        path_ = mkdtemp(pattern);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    std::string at(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

/// The codes of all reports, in order. Copies share one list.
class Reports {
public:
    detail::DiskCacheReport collect() const {
        return [state = state_](const Error& error) {
            EXPECT_EQ(error.domain(), DiskCacheErrorDomain);
            EXPECT_FALSE(error.localizedDescription().empty());
            const std::lock_guard lock(state->mutex);
            state->codes.push_back(static_cast<DiskCacheErrorCode>(error.code()));
        };
    }
    std::vector<DiskCacheErrorCode> codes() const {
        const std::lock_guard lock(state_->mutex);
        return state_->codes;
    }

private:
    struct State {
        std::mutex mutex;
        std::vector<DiskCacheErrorCode> codes;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// The records of `key`. Fails if the store does not answer within half a minute.
inline std::vector<detail::CacheRecord> recordsOf(detail::CacheStore& store, const std::string& key) {
    const Event found;
    const auto records = std::make_shared<std::vector<detail::CacheRecord>>();
    store.read(key, [found, records](std::vector<detail::CacheRecord> got) {
        *records = std::move(got);
        found.signal();
    });
    EXPECT_TRUE(found.wait()) << key;
    return *records;
}

/// The body of the only record of `key`; "none" if there is none, "several" if there are more.
inline std::string bodyIn(detail::CacheStore& store, const std::string& key) {
    const auto records = recordsOf(store, key);
    if (records.size() != 1) return records.empty() ? "none" : "several";
    return std::string(records.front().body.view());
}

class DiskStore : public testing::Test {
protected:
    using Code = DiskCacheErrorCode;

    static constexpr std::uint64_t capacity = 4U << 20U;

    void open(std::uint64_t bytes = capacity, const detail::DiskCacheLimits& limits = {}) {
        close();
        closed_ = Event();
        // The report function is destroyed after the file has been closed.
        std::shared_ptr<void> token(nullptr, [closed = closed_](void*) { closed.signal(); });
        auto report = [token = std::move(token), collect = reports_.collect()](const Error& error) mutable {
            collect(error);
        };
        store_ = detail::openDiskCacheStore(folder(), bytes, std::move(report), limits);
    }

    /// Waits until everything is written and the file is closed.
    void close() {
        if (store_ == nullptr) return;
        store_.reset();
        EXPECT_TRUE(closed_.wait());
    }

    void TearDown() override { close(); }

    void write(const std::string& key, const std::string& body, const std::string& variant = {}) {
        store_->write({key, variant, Data("head of " + key), Data(body)});
    }

    std::string folder() const { return temporary_.at("a/cache"); }
    std::string file() const { return folder() + "/cache.sqlite"; }
    std::uint64_t fileSize(const std::string& suffix = {}) const {
        return std::filesystem::exists(file() + suffix) ? std::filesystem::file_size(file() + suffix) : 0;
    }
    static unsigned modeOf(const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
    }

    TemporaryFolder temporary_;
    Reports reports_;
    std::shared_ptr<detail::CacheStore> store_;
    Event closed_;
};

}  // namespace VanticRestKit::test
