#include <platform/http/cache/disk/DiskStore.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/Sanitized.h>

#include <sys/wait.h>
#include <unistd.h>
#include <functional>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::IsEmpty;

namespace {

class DiskCacheFork : public DiskStore {
protected:
    void SetUp() override {
#if defined(VRK_IS_EMULATED)
        GTEST_SKIP() << "qemu ends a forked child of a multithreaded process when the child starts a thread";
#elif defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "a child cannot start threads under this sanitizer";
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
        GTEST_SKIP() << "a child cannot start threads under this sanitizer";
#endif
#endif
        open();
        write("a", "of the parent");
        store_->flush();
    }

    static bool holdsInChild(const std::function<bool()>& check) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(30);
            _exit(check() ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
};

}  // namespace

TEST_F(DiskCacheFork, AChildFindsTheStoreEmptyAndChangesNothing) {
    EXPECT_TRUE(holdsInChild([this] {
        if (bodyIn(*store_, "a") != "none") return false;
        store_->write({"a", "", Data(), Data("of the child")});
        store_->removeAll("");
        store_->flush();
        if (store_->currentUsage() != 0) return false;
        store_.reset();
        return true;
    }));
    EXPECT_EQ(bodyIn(*store_, "a"), "of the parent");
    write("b", "body");
    EXPECT_EQ(bodyIn(*store_, "b"), "body");
    EXPECT_THAT(reports_.codes(), IsEmpty());
}

TEST_F(DiskCacheFork, AStoreOpenedByTheChildReportsWhyItIsEmpty) {
    EXPECT_TRUE(holdsInChild([this] {
        const Reports reports;
        const auto own = detail::openDiskCacheStore(folder(), capacity, reports.collect());
        own->write({"a", "", Data(), Data("of the child")});
        if (bodyIn(*own, "a") != "none") return false;
        return reports.codes() == std::vector{DiskCacheErrorCode::forked};
    }));
    EXPECT_EQ(bodyIn(*store_, "a"), "of the parent");
}
