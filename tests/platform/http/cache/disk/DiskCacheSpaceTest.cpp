#include <platform/http/cache/disk/DiskStore.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::IsEmpty;

namespace {

/// How far the file may exceed the capacity: free pages kept for reuse, and the pages of one transaction.
constexpr std::uint64_t slack = 4U << 20U;

class DiskCacheSpace : public DiskStore {
protected:
    void TearDown() override {
        close();
        EXPECT_THAT(reports_.codes(), IsEmpty());
    }
    bool has(int number) { return bodyIn(*store_, std::to_string(number)) != "none"; }
};

}  // namespace

TEST_F(DiskCacheSpace, EvictsTheLeastRecentlyUsedRecord) {
    open(1'000'000);
    for (int i = 0; i < 8; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    EXPECT_TRUE(has(0));
    store_->writeHead({"1", "", Data("renewed"), Data(std::string(100'000, 'x'))});
    for (int i = 8; i < 13; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    EXPECT_TRUE(has(0)) << "was read";
    EXPECT_TRUE(has(1)) << "its head was written";
    EXPECT_FALSE(has(2));
    EXPECT_FALSE(has(3));
    EXPECT_TRUE(has(12));
    EXPECT_LE(store_->currentUsage(), 1'000'000U);
}

TEST_F(DiskCacheSpace, RemembersRecentReadsAfterReopening) {
    open(1'000'000);
    for (int i = 0; i < 8; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    open(1'000'000);
    EXPECT_TRUE(has(0));
    open(1'000'000);
    for (int i = 8; i < 13; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    EXPECT_TRUE(has(0));
    EXPECT_FALSE(has(1));
}

TEST_F(DiskCacheSpace, DoesNotStoreARecordLargerThanTheCapacity) {
    open(200'000);
    write("a", "small");
    write("b", "small");
    write("a", std::string(300'000, 'x'));
    EXPECT_EQ(bodyIn(*store_, "a"), "none") << "the record that it would replace is removed too";
    EXPECT_EQ(bodyIn(*store_, "b"), "small");
}

TEST_F(DiskCacheSpace, ACapacityOfZeroStoresNothing) {
    open(0);
    write("a", "");
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    EXPECT_EQ(store_->currentUsage(), 0U);
}

TEST_F(DiskCacheSpace, TheFileStaysNearTheCapacity) {
    open(capacity);
    unsigned state = 1;
    for (unsigned i = 0; i < 3000; ++i) {
        state = state * 1664525U + 1013904223U;
        const std::size_t size = (state >> 16U) % (i % 50 == 0 ? 200'000 : 12'000);
        store_->write(recordOf(std::to_string((state >> 8U) % 2000), "v", i + 1, size));
        if (i % 100 == 99) store_->flush();
        ASSERT_LE(store_->currentUsage(), capacity);
        ASSERT_LE(fileSize() + fileSize("-wal"), capacity + slack) << i;
    }
    EXPECT_GT(store_->currentUsage(), capacity / 2);
    int whole = 0;
    for (int key = 0; key < 2000; ++key) {
        for (const auto& record : recordsOf(*store_, std::to_string(key))) {
            ASSERT_NE(versionOf(record), 0U);
            ++whole;
        }
    }
    EXPECT_GT(whole, 200);
}

TEST_F(DiskCacheSpace, CountsTheOverheadOfTinyRecords) {
    open(1'000'000);
    for (int i = 0; i < 20'000; ++i) write("http://127.0.0.1/v2/item/" + std::to_string(i), "x");
    store_->flush();
    EXPECT_LE(store_->currentUsage(), 1'000'000U);
    EXPECT_LE(fileSize(), 1'000'000U + slack);
    EXPECT_NE(bodyIn(*store_, "http://127.0.0.1/v2/item/19999"), "none");
}

TEST_F(DiskCacheSpace, ReturnsSpaceToTheFileSystem) {
    open(capacity * 4);
    for (int i = 0; i < 100; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    store_->flush();
    EXPECT_GT(store_->currentUsage(), 10'000'000U);
    store_->removeAll("");
    close();
    EXPECT_LE(fileSize(), 2'000'000U);
    EXPECT_EQ(fileSize("-wal"), 0U);
}

TEST_F(DiskCacheSpace, ASmallerCapacityAppliesFromTheNextOpening) {
    open(capacity);
    for (int i = 0; i < 30; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    open(capacity / 4);
    store_->flush();
    EXPECT_LE(store_->currentUsage(), capacity / 4);
    EXPECT_FALSE(has(0));
    EXPECT_TRUE(has(29));
    close();
    EXPECT_LE(fileSize(), capacity / 4 + slack / 2);
}

TEST_F(DiskCacheSpace, KnowsItsUsageAfterOpening) {
    open();
    for (int i = 0; i < 10; ++i) write(std::to_string(i), std::string(100'000, 'x'));
    store_->flush();
    const std::uint64_t before = store_->currentUsage();
    EXPECT_GE(before, 1'000'000U);
    open();
    store_->flush();
    EXPECT_EQ(store_->currentUsage(), before);
}

TEST_F(DiskCacheSpace, DropsTheOldestWritesIfTooManyArePending) {
    detail::DiskCacheLimits limits;
    limits.maxPendingBytes = 100'000;
    open(capacity, limits);
    write("0", "of another time");
    store_->flush();
    // Blocks the store's thread until the test continues.
    const Event isHeld;
    const Event goesOn;
    store_->read("0", [isHeld, goesOn](const auto&) {
        isHeld.signal();
        static_cast<void>(goesOn.wait());
    });
    ASSERT_TRUE(isHeld.wait());
    for (int i = 0; i < 20; ++i) write(std::to_string(i), std::string(10'000, 'x'));
    EXPECT_EQ(store_->droppedWrites(), 11U);
    goesOn.signal();
    EXPECT_FALSE(has(0)) << "the record that a dropped write would replace is removed";
    EXPECT_FALSE(has(10));
    EXPECT_TRUE(has(11));
    EXPECT_TRUE(has(19));
    EXPECT_EQ(store_->droppedWrites(), 11U);
}
