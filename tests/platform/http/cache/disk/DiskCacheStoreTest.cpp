#include <platform/http/cache/disk/DiskStore.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <atomic>
#include <thread>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace {

class DiskCacheStore : public DiskStore {
protected:
    void SetUp() override { open(); }
    void TearDown() override {
        close();
        EXPECT_THAT(reports_.codes(), IsEmpty());
    }
    void reopen() { open(); }
};

}  // namespace

TEST_F(DiskCacheStore, IsPartOfThisBuild) { EXPECT_TRUE(detail::hasDiskCacheStore()); }

TEST_F(DiskCacheStore, CreatesNothingBeforeTheFirstWrite) {
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    store_->writeHead({"a", "", Data("head"), Data("body")});
    store_->remove("a");
    store_->removeAll("");
    store_->flush();
    EXPECT_FALSE(std::filesystem::exists(temporary_.at("a")));
    EXPECT_EQ(store_->currentUsage(), 0U);
}

TEST_F(DiskCacheStore, CreatesFolderAndFilesForTheUserOnly) {
    const mode_t before = umask(0);
    write("a", "body");
    store_->flush();
    umask(before);
    EXPECT_EQ(modeOf(temporary_.at("a")), 0700U);
    EXPECT_EQ(modeOf(folder()), 0700U);
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder())) {
        EXPECT_EQ(modeOf(entry.path()), 0600U) << entry.path();
        ++files;
    }
    EXPECT_EQ(files, 4) << "the file, its log and its index, and the lock";
}

TEST_F(DiskCacheStore, RemovesTheRightsOfOthersFromAnExistingFile) {
    write("a", "body");
    close();
    chmod(file().c_str(), 0644);
    reopen();
    EXPECT_EQ(bodyIn(*store_, "a"), "body");
    EXPECT_EQ(modeOf(file()), 0600U);
    EXPECT_EQ(modeOf(file() + "-wal"), 0600U);
    EXPECT_EQ(modeOf(file() + "-shm"), 0600U);
}

TEST_F(DiskCacheStore, FindsRecordsAfterReopening) {
    write("a", "body of a");
    write("b", "");
    reopen();
    const auto records = recordsOf(*store_, "a");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].key, "a");
    EXPECT_EQ(records[0].variant, "");
    EXPECT_EQ(records[0].head, Data("head of a"));
    EXPECT_EQ(records[0].body, Data("body of a"));
    EXPECT_EQ(bodyIn(*store_, "b"), "");
    EXPECT_EQ(bodyIn(*store_, "c"), "none");
}

TEST_F(DiskCacheStore, KeepsTheOrderOfTheCalls) {
    write("a", "1");
    const Event done;
    std::string second;
    write("a", "2");
    store_->read("a", [done, &second](std::vector<detail::CacheRecord> found) {
        second = found.empty() ? "none" : std::string(found[0].body.view());
        done.signal();
    });
    store_->remove("a");
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    write("a", "3");
    EXPECT_EQ(bodyIn(*store_, "a"), "3");
    ASSERT_TRUE(done.wait());
    EXPECT_EQ(second, "2");
}

TEST_F(DiskCacheStore, KeepsAllVariantsOfAKeyAndReplacesOneOfThem) {
    write("a", "english", "en");
    write("a", "german", "de");
    write("a", "english again", "en");
    std::map<std::string, std::string> bodies;
    for (const auto& record : recordsOf(*store_, "a")) bodies[record.variant] = record.body.view();
    EXPECT_THAT(bodies, UnorderedElementsAre(Pair("en", "english again"), Pair("de", "german")));
    store_->remove("a");
    EXPECT_THAT(recordsOf(*store_, "a"), IsEmpty());
}

TEST_F(DiskCacheStore, ReplacesTheHeadAndKeepsTheBody) {
    write("a", std::string(100'000, 'x'), "v");
    write("b", "other", "v");
    const Data body(std::string(100'000, 'x'));
    store_->writeHead({"a", "v", Data("a longer head than the one before"), body});
    store_->writeHead({"a", "w", Data("of a variant that is not there"), body});
    store_->writeHead({"c", "v", Data("of a key that is not there"), body});
    reopen();
    const auto records = recordsOf(*store_, "a");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].head, Data("a longer head than the one before"));
    EXPECT_EQ(records[0].body, Data(std::string(100'000, 'x')));
    EXPECT_THAT(recordsOf(*store_, "c"), IsEmpty());
    EXPECT_EQ(recordsOf(*store_, "b").at(0).head, Data("head of b"));
}

TEST_F(DiskCacheStore, TreatsAPrefixLiterally) {
    for (const char* key : {"a%", "a%1", "ab", "a_", "a_1", "A%1", "a\xff", "b", "[a]*", "[a]"})
        write(key, key);
    store_->removeAll("a%");
    store_->removeAll("a_");
    store_->removeAll("[a]*");
    store_->removeAll("\\");
    for (const char* removed : {"a%", "a%1", "a_", "a_1", "[a]*"})
        EXPECT_EQ(bodyIn(*store_, removed), "none") << removed;
    for (const char* kept : {"ab", "A%1", "a\xff", "b", "[a]"})
        EXPECT_EQ(bodyIn(*store_, kept), kept) << kept;
    store_->removeAll("a\xff");
    EXPECT_EQ(bodyIn(*store_, "a\xff"), "none");
    EXPECT_EQ(bodyIn(*store_, "b"), "b");
}

TEST_F(DiskCacheStore, RemovesAllKeysWithAPrefixOfHighestBytes) {
    write("\xff\xff", "1");
    write("\xff\xff\xff", "2");
    write("\xff", "3");
    write("z", "4");
    store_->removeAll("\xff\xff");
    EXPECT_EQ(bodyIn(*store_, "\xff\xff"), "none");
    EXPECT_EQ(bodyIn(*store_, "\xff\xff\xff"), "none");
    EXPECT_EQ(bodyIn(*store_, "\xff"), "3");
    EXPECT_EQ(bodyIn(*store_, "z"), "4");
}

TEST_F(DiskCacheStore, AnEmptyPrefixRemovesEverything) {
    for (int i = 0; i < 50; ++i) write("key " + std::to_string(i), std::string(5000, 'x'));
    store_->flush();
    EXPECT_GT(store_->currentUsage(), 250'000U);
    store_->removeAll("");
    store_->flush();
    EXPECT_EQ(store_->currentUsage(), 0U);
    EXPECT_EQ(bodyIn(*store_, "key 7"), "none");
}

TEST_F(DiskCacheStore, AcceptsAnyKeysVariantsAndBytes) {
    const std::string odd("\0 \xff'\"%\n\0", 8);
    store_->write({odd, odd, Data(odd), Data(odd)});
    store_->write({"", "", Data(), Data()});
    reopen();
    EXPECT_EQ(bodyIn(*store_, odd), odd);
    EXPECT_EQ(recordsOf(*store_, odd).at(0).variant, odd);
    EXPECT_EQ(recordsOf(*store_, odd).at(0).head.view(), odd);
    EXPECT_EQ(bodyIn(*store_, ""), "");
    EXPECT_EQ(bodyIn(*store_, odd.substr(0, 1)), "none");
}

TEST_F(DiskCacheStore, CanBeUsedByManyThreads) {
    std::vector<std::thread> threads;
    std::atomic<int> whole = 0;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([this, number, &whole] {
            const std::string key = "key " + std::to_string(number);
            for (unsigned version = 1; version <= 20; ++version) {
                store_->write(recordOf(key, "v", version, 1000));
                const auto records = recordsOf(*store_, key);
                if (records.size() == 1 && versionOf(records[0]) == version) ++whole;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(whole, 80);
}

TEST_F(DiskCacheStore, TwoStoresOfOneProcessShareAFolder) {
    const auto other = detail::openDiskCacheStore(folder(), capacity, reports_.collect());
    for (int i = 0; i < 20; ++i) {
        const std::string key = std::to_string(i);
        write(key, "of one");
        store_->flush();
        EXPECT_EQ(bodyIn(*other, key), "of one");
        other->write({key, "", Data(), Data("of the other")});
        other->flush();
        EXPECT_EQ(bodyIn(*store_, key), "of the other");
    }
}

TEST_F(DiskCacheStore, DoesNotReplaceTheHeadOfABodyWrittenByAnotherStore) {
    const auto other = detail::openDiskCacheStore(folder(), capacity, reports_.collect());
    store_->write({"a", "", Data("head 1"), Data("body 1")});
    store_->flush();
    other->write({"a", "", Data("head 2"), Data("body 2")});
    other->flush();
    store_->writeHead({"a", "", Data("head 1, renewed"), Data("body 1")});
    const auto records = recordsOf(*store_, "a");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].head, Data("head 2"));
    EXPECT_EQ(records[0].body, Data("body 2"));
    other->writeHead({"a", "", Data("head 2, renewed"), Data("body 2")});
    EXPECT_EQ(recordsOf(*other, "a").at(0).head, Data("head 2, renewed"));
}

TEST_F(DiskCacheStore, CompletesPendingWritesAfterItsLastHandleIsDestroyed) {
    for (int i = 0; i < 100; ++i) write(std::to_string(i), "body");
    reopen();
    for (int i = 0; i < 100; ++i) EXPECT_EQ(bodyIn(*store_, std::to_string(i)), "body");
}

TEST_F(DiskCacheStore, AFlushOnItsOwnThreadDoesNotBlock) {
    const Event flushed;
    store_->read("a", [this, flushed](const auto&) {
        store_->flush();
        flushed.signal();
    });
    EXPECT_TRUE(flushed.wait());
}
