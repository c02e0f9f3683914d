#include <platform/http/cache/disk/DiskFaults.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

using DiskCacheFaults = DiskFaults;

}  // namespace

TEST_F(DiskCacheFaults, AFileThatIsNotADatabaseIsSetAside) {
    put(file(), std::string(5000, 'x'));
    open();
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::foreignFile));
    EXPECT_EQ(read(file() + ".foreign"), std::string(5000, 'x'));
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::foreignFile));
}

TEST_F(DiskCacheFaults, ADatabaseOfAnotherProgramIsSetAsideAndNeverReplaced) {
    for (const char* name : {".foreign", ".foreign-2"}) {
        put(file(), "");
        execute("CREATE TABLE theirs(a); INSERT INTO theirs VALUES(1)");
        const std::string theirs = read(file());
        open();
        expectItWorks();
        close();
        EXPECT_EQ(read(file() + name), theirs) << name;
        fs::remove(file());
    }
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::foreignFile, Code::foreignFile));
}

TEST_F(DiskCacheFaults, AFileOfANewerVersionIsSetAside) {
    prepare();
    execute("PRAGMA user_version=2");
    open();
    EXPECT_EQ(countIntact(), 0);
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::newerFile));
    EXPECT_TRUE(fs::exists(file() + ".newer"));
}

TEST_F(DiskCacheFaults, AFolderInPlaceOfTheFileIsSetAside) {
    fs::create_directories(file());
    open();
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::foreignFile));
    EXPECT_TRUE(fs::is_directory(file() + ".foreign"));
}

TEST_F(DiskCacheFaults, AFileWithoutItsTablesIsSetAside) {
    prepare();
    execute("DROP TABLE body");
    open();
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedFile));
    EXPECT_TRUE(fs::exists(file() + ".damaged"));
}

TEST_F(DiskCacheFaults, AnEmptyFileIsUsed) {
    put(file(), "");
    open();
    expectItWorks();
    EXPECT_THAT(reports_.codes(), IsEmpty());
    EXPECT_EQ(modeOf(file()), 0600U);
}

TEST_F(DiskCacheFaults, ADamagedFileNeverYieldsADamagedRecord) {
    prepare();
    const std::string sound = read(file());
    ASSERT_GT(sound.size(), 400'000U);
    const std::string noise(3000, '\x5a');
    int found = 0;
    int setAside = 0;
    for (std::size_t at = 0; at + noise.size() < sound.size(); at += 7919) {
        std::string damaged = sound;
        damaged.replace(at, noise.size(), noise);
        fs::remove_all(folder());
        put(file(), damaged);
        open();
        found += countIntact();
        expectItWorks();
        close();
        setAside += fs::exists(file() + ".damaged") || fs::exists(file() + ".foreign") ? 1 : 0;
    }
    EXPECT_GT(found, 100) << "most damages leave most records intact";
    EXPECT_GT(setAside, 0);
    EXPECT_FALSE(reports_.codes().empty());
}

TEST_F(DiskCacheFaults, ATruncatedFileIsHandled) {
    prepare();
    const std::string sound = read(file());
    for (std::size_t size = 1; size < sound.size(); size += sound.size() / 23) {
        fs::remove_all(folder());
        put(file(), sound.substr(0, size));
        open();
        countIntact();
        expectItWorks();
        close();
    }
    EXPECT_FALSE(reports_.codes().empty());
}

TEST_F(DiskCacheFaults, ABodyWithOneWrongBitIsRemovedAndReported) {
    prepare();
    flipBitOf(bodyOf("7", "v", 1, 20'000).substr(300, 100));
    open();
    EXPECT_EQ(countIntact(), 19);
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedRecord));
    EXPECT_EQ(countIntact(), 19);
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedRecord)) << "it is gone";
}

TEST_F(DiskCacheFaults, AHeadWithOneWrongBitIsRemovedAndReported) {
    open();
    store_->write({"a", "v", Data("Content-Type: text/plain"), Data("body")});
    close();
    flipBitOf("text/plain");
    open();
    EXPECT_THAT(recordsOf(*store_, "a"), IsEmpty());
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedRecord));
}

TEST_F(DiskCacheFaults, ARecordWithTheBodyOfAnotherOneIsRemoved) {
    prepare();
    execute("UPDATE body SET bytes = (SELECT bytes FROM body WHERE id = 3) WHERE id = 5");
    execute("UPDATE record SET bodySum = (SELECT bodySum FROM record WHERE id = 3) WHERE id = 5");
    open();
    EXPECT_EQ(countIntact(), 19);
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::damagedRecord));
}

TEST_F(DiskCacheFaults, ContinuesWhenTheFolderIsRemoved) {
    open();
    write("a", "body");
    store_->flush();
    fs::remove_all(temporary_.at("a"));
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    EXPECT_FALSE(fs::exists(folder())) << "reading creates nothing";
    expectItWorks();
    EXPECT_TRUE(fs::exists(file()));
    EXPECT_THAT(reports_.codes(), IsEmpty());
}

TEST_F(DiskCacheFaults, AFolderThatCannotBeCreatedIsReportedOnceAndCountsAsEmpty) {
    put(temporary_.at("a"), "a file");
    open();
    for (int i = 0; i < 3; ++i) {
        write("a", "body");
        EXPECT_EQ(bodyIn(*store_, "a"), "none");
    }
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable));
    fs::remove(temporary_.at("a"));
    expectItWorks();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable));
}

TEST_F(DiskCacheFaults, ARecordThatCouldNotBeReplacedIsNotReturnedLater) {
    prepare();
    fs::rename(folder(), temporary_.at("hidden"));
    put(folder(), "a file");
    open();
    store_->write(recordOf("3", "v", 2, 100));
    store_->flush();
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::folderUnavailable));
    fs::remove(folder());
    fs::rename(temporary_.at("hidden"), folder());
    EXPECT_EQ(countIntact(), 0);
    expectItWorks();
}

TEST_F(DiskCacheFaults, AFullDiskIsReportedOnceAndStoredRecordsAreKept) {
    detail::DiskCacheLimits limits;
    limits.maxPages = 120;
    open(capacity, limits);
    for (int i = 0; i < 20; ++i) {
        store_->write(recordOf(std::to_string(i), "v", 1, 40'000));
        store_->flush();
    }
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::diskFull));
    const int stored = countIntact();
    EXPECT_GE(stored, 9);
    EXPECT_LE(stored, 12);
    store_->remove("0");
    store_->remove("1");
    EXPECT_EQ(countIntact(), stored - 2);
    store_->write(recordOf("0", "v", 2, 40'000));
    EXPECT_EQ(countIntact(), stored - 1) << "there is space again";
    for (int i = 0; i < 5; ++i) {
        store_->write(recordOf("more " + std::to_string(i), "v", 1, 40'000));
        store_->flush();
    }
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::diskFull, Code::diskFull))
        << "the condition had ended in between";
}

TEST_F(DiskCacheFaults, ARecordThatAFullDiskPreventedFromBeingReplacedIsNotReturned) {
    detail::DiskCacheLimits limits;
    limits.maxPages = 120;
    open(capacity, limits);
    for (int i = 0; i < 8; ++i) store_->write(recordOf(std::to_string(i), "v", 1, 40'000));
    store_->write(recordOf("3", "v", 2, 400'000));
    store_->writeHead({"3", "v", Data(headOf("3", "v", 2, 1)), Data(bodyOf("3", "v", 2, 400'000))});
    EXPECT_THAT(recordsOf(*store_, "3"), IsEmpty());
    EXPECT_EQ(countIntact(), 7);
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::diskFull));
}

TEST_F(DiskCacheFaults, WorksOnAFullFileSystem) {
    fs::create_directories(folder());
    // The mount is visible only to this process.
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", folder().c_str(), "tmpfs", 0, "size=600k") != 0) {
        GTEST_SKIP() << "no right to mount";
    }
    open();
    for (unsigned version = 1; version <= 3; ++version) {
        for (int i = 0; i < 20; ++i) {
            store_->write(recordOf(std::to_string(i), "v", version, 40'000));
            store_->flush();
        }
        countIntact();
    }
    ASSERT_FALSE(reports_.codes().empty());
    EXPECT_EQ(reports_.codes()[0], Code::diskFull);
    store_->removeAll("");
    EXPECT_EQ(countIntact(), 0) << "removing works on a full disk";
    expectItWorks();
    EXPECT_EQ(mount("none", folder().c_str(), "tmpfs", MS_REMOUNT, "size=20m"), 0);
    for (int i = 0; i < 20; ++i) store_->write(recordOf(std::to_string(i), "v", 9, 40'000));
    EXPECT_EQ(countIntact(), 20);
    close();
    EXPECT_EQ(umount(folder().c_str()), 0);
}

TEST_F(DiskCacheFaults, ALockHeldForTooLongIsReported) {
    prepare();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    detail::DiskCacheLimits limits;
    limits.busyTimeout = std::chrono::milliseconds(20);
    open(capacity, limits);
    write("new", "body");
    EXPECT_EQ(bodyIn(*store_, "new"), "none");
    EXPECT_EQ(countIntact(), 20) << "reading still works";
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::busy));
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    expectItWorks();
}
