#include <platform/http/cache/disk/DiskStore.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::ElementsAre;

TEST_F(DiskStore, WithoutSQLiteReportsThatOnceAndStaysEmpty) {
    EXPECT_FALSE(detail::hasDiskCacheStore());
    open();
    write("a", "body");
    store_->writeHead({"a", "", Data("head"), Data("body")});
    EXPECT_EQ(bodyIn(*store_, "a"), "none");
    store_->remove("a");
    store_->removeAll("");
    store_->flush();
    EXPECT_EQ(store_->currentUsage(), 0U);
    EXPECT_EQ(store_->droppedWrites(), 0U);
    EXPECT_THAT(reports_.codes(), ElementsAre(Code::unsupported));
    EXPECT_FALSE(std::filesystem::exists(folder()));
}

TEST_F(DiskStore, WithoutSQLiteNeedsNoReport) {
    const auto store = detail::openDiskCacheStore(folder(), capacity, {});
    EXPECT_EQ(bodyIn(*store, "a"), "none");
    store->flush();
}
