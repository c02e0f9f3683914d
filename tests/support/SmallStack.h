#pragma once

/// \file
/// Runs a test on a small stack, like those of threads in many hosts, and reports the size of a stack.

#include <gtest/gtest.h>

#include <pthread.h>
#include <support/Sanitized.h>
#include <cstddef>
#include <functional>

namespace VanticRestKit::test {

#if defined(VRK_IS_SANITIZED) || defined(VRK_IS_UNOPTIMISED) || defined(__s390x__)
// Each frame is several times larger with a sanitizer, if the tested code is not optimised, and in an ABI whose frames have
// at least 160 bytes.
inline constexpr std::size_t smallStack = 4 * 256 * 1024;
#else
inline constexpr std::size_t smallStack = 256 * 1024;
#endif

/// Runs `task` on a thread with a stack of 256 KB and waits for it.
inline void onASmallStack(std::function<void()> task) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, smallStack), 0);
    const auto run = [](void* function) -> void* {
        (*static_cast<std::function<void()>*>(function))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &task), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

/// The stack size of the calling thread. The C library may have rounded up the requested size, and may or may not
/// include the guard page.
inline std::size_t ownStackSize() {
    pthread_attr_t attributes;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
    pthread_attr_getstacksize(&attributes, &size);
    pthread_attr_destroy(&attributes);
    return size;
}

}  // namespace VanticRestKit::test
