// Files that a store cannot open, read or rename, and locks of other processes.

#include <platform/http/cache/disk/DiskFaults.h>

#include <cerrno>
#include <cstring>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

class DiskCacheObstacles : public DiskFaults {
protected:
    /// A connection of another process to the file.
    class Other {
    public:
        explicit Other(const std::string& path) {
            EXPECT_EQ(sqlite3_open(path.c_str(), &database_), SQLITE_OK);
        }
        Other(const Other&) = delete;
        Other& operator=(const Other&) = delete;
        ~Other() { sqlite3_close(database_); }

        void execute(const char* statements) {
            EXPECT_EQ(sqlite3_exec(database_, statements, nullptr, nullptr, nullptr), SQLITE_OK)
                << sqlite3_errmsg(database_);
        }

    private:
        sqlite3* database_ = nullptr;
    };

    /// A store that does not wait for locks.
    void openImpatiently() {
        detail::DiskCacheLimits limits;
        limits.busyTimeout = std::chrono::milliseconds(1);
        open(capacity, limits);
    }
};

}  // namespace

TEST_F(DiskCacheObstacles, AFileOfAnOlderVersionIsSetAside) {
    prepare();
    execute("PRAGMA user_version=0");
    open();
    EXPECT_EQ(countIntact(), 0);
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedFile));
    EXPECT_TRUE(fs::exists(file() + ".damaged"));
}

TEST_F(DiskCacheObstacles, AFileThatCannotBeOpenedIsReportedAndKept) {
    prepare();
    fs::remove(file() + "-wal");
    fs::create_directory(file() + "-wal");
    open();
    write("a", "body");
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable));
    EXPECT_FALSE(fs::exists(file() + ".damaged"));
    fs::remove(file() + "-wal");
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable));
}

TEST_F(DiskCacheObstacles, ADamagedFileThatCannotBeSetAsideIsReportedAndNotUsed) {
    prepare();
    execute("DROP TABLE body");
    fs::create_directory(file() + ".damaged");
    open();
    write("a", "body");
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    EXPECT_EQ(store_->currentUsage(), 0U);
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable));
    fs::remove(file() + ".damaged");
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable, Code::damagedFile));
}

TEST_F(DiskCacheObstacles, AFileThatRejectsRecordsIsSetAside) {
    prepare();
    execute("CREATE TRIGGER no BEFORE INSERT ON body BEGIN SELECT RAISE(ABORT, 'no'); END");
    open();
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedFile));
    EXPECT_EQ(countIntact(), 0);
}

TEST_F(DiskCacheObstacles, AFileWithATooLargeRecordIsSetAside) {
    open();
    store_->write(recordOf("0", "v", 1, 3'000'000));
    detail::DiskCacheLimits limits;
    limits.maxPendingBytes = 1'000'000;
    open(capacity, limits);
    EXPECT_EQ(countIntact(), 0);
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedFile));
}

TEST_F(DiskCacheObstacles, AFileLockedWhenOpenedIsReportedAndUsedLater) {
    prepare();
    {
        Other other(file());
        other.execute("PRAGMA locking_mode=EXCLUSIVE; BEGIN IMMEDIATE; DELETE FROM record WHERE id = 1");
        openImpatiently();
        EXPECT_EQ(countIntact(), 0);
        EXPECT_THAT(reports_.codes(), ElementsAre(Code::busy));
    }
    EXPECT_EQ(countIntact(), 20);
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::busy));
}

TEST_F(DiskCacheObstacles, ARecordThatALockPreventedFromBeingRemovedIsNotReturned) {
    prepare();
    Other other(file());
    other.execute("BEGIN IMMEDIATE");
    openImpatiently();
    // There are keys after this one, but none begins with it.
    store_->remove("1x");
    store_->removeAll("1x");
    EXPECT_EQ(countIntact(), 20);
    store_->remove("3");
    EXPECT_THAT(recordsOf(*store_, "3"), IsEmpty());
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::busy));
    // The file was removed, so the lock of the old one no longer matters.
    expectItWorks();
}

TEST_F(DiskCacheObstacles, ASmallerCapacityAppliesLaterIfTheFileIsLocked) {
    prepare();
    {
        Other other(file());
        other.execute("BEGIN IMMEDIATE");
        detail::DiskCacheLimits limits;
        limits.busyTimeout = std::chrono::milliseconds(1);
        open(200'000, limits);
        EXPECT_EQ(countIntact(), 20);
    }
    expectItWorks();
    EXPECT_LE(store_->currentUsage(), 200'000U);
    EXPECT_LE(countIntact(), 10);
}

TEST_F(DiskCacheObstacles, ARecordOfNearlyTheWholeCapacityReplacesAllOthers) {
    open(100'000);
    store_->write(recordOf("0", "v", 1, 20'000));
    store_->write(recordOf("1", "v", 1, 92'000));
    EXPECT_THAT(recordsOf(*store_, "0"), IsEmpty());
    EXPECT_EQ(countIntact(), 1);
}

TEST_F(DiskCacheObstacles, AnErrorHasTheFileAndTheReason) {
    put(temporary_.at("a"), "a file");
    std::vector<Error> errors;
    const Event closed;
    std::shared_ptr<void> token(nullptr, [closed](void*) { closed.signal(); });
    auto store = detail::openDiskCacheStore(
        folder(), capacity,
        [&errors, token = std::move(token)](const Error& error) { errors.push_back(error); });
    store->write({"a", "", Data(), Data("body")});
    store.reset();
    ASSERT_TRUE(closed.wait());
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].localizedDescription(), "The folder of the cache cannot be used.");
    const auto userInfo = errors[0].userInfo();
    const auto textOf = [&userInfo](const char* key) {
        const auto found = userInfo.find(key);
        return found == userInfo.end() ? "none" : *found->second.text();
    };
    EXPECT_EQ(textOf("NSErrorFailingURLStringKey"), file());
    EXPECT_EQ(textOf("NSDebugDescription"), std::strerror(ENOTDIR));
}
