// A separate program, since it replaces the function that locks parts of files.

#include <platform/http/cache/disk/DiskStore.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <atomic>
#include <cerrno>
#include <cstdarg>

namespace {

/// Counted down with each unlock. The unlock that makes it zero fails.
std::atomic<int> unlocksUntilFailure = 0;

}  // namespace

// The symbol is named here because headers may give the function `fcntl64` another one, for 64-bit times.
extern "C" [[gnu::visibility("default")]] int lockOrFail(int file, int request, ...) asm("fcntl64");

int lockOrFail(int file, int request, ...) {
    static auto* const real = reinterpret_cast<int (*)(int, int, ...)>(dlsym(RTLD_NEXT, "fcntl64"));
    va_list rest;
    va_start(rest, request);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    // SQLite uses the form for large files, which is a request of its own on 32-bit systems.
    const bool unlocks = request == F_SETLK64 && static_cast<const flock64*>(argument)->l_type == F_UNLCK;
    if (unlocks && unlocksUntilFailure.fetch_sub(1) == 1) {
        errno = ENOLCK;
        return -1;
    }
    return real(file, request, argument);
}

namespace VanticRestKit::test {

namespace {

using DiskCacheLocks = DiskStore;

TEST_F(DiskCacheLocks, RecordsWrittenAfterAFailedUnlockAreFound) {
    // One of these makes SQLite wait ten seconds for a lock that it holds itself.
    for (const int unlock : {1, 2, 3, 4}) {
        open();
        write("before", "1");
        EXPECT_EQ(bodyIn(*store_, "before"), "1");
        unlocksUntilFailure = unlock;
        write("meanwhile", "2");
        store_->flush();
        EXPECT_LE(unlocksUntilFailure, 0) << "the unlock has failed";
        write("after", std::to_string(unlock));
        EXPECT_EQ(bodyIn(*store_, "after"), std::to_string(unlock));
        EXPECT_EQ(bodyIn(*store_, "meanwhile"), "2");
    }
    EXPECT_TRUE(reports_.codes().empty());
}

}  // namespace

}  // namespace VanticRestKit::test
