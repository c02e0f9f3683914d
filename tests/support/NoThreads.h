#pragma once

/// \file
/// Makes the creation of threads fail.

#include <pthread.h>
#include <cstddef>

namespace VanticRestKit::test {

/// While an object exists, no thread of this process can be started, because the default stack size exceeds the address
/// space.
class NoThreads {
public:
    NoThreads() {
        pthread_attr_t attributes;
        pthread_getattr_default_np(&attributes);
        pthread_attr_getstacksize(&attributes, &usual_);
        setStackSize(std::size_t{1} << 47);
        pthread_attr_destroy(&attributes);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() { setStackSize(usual_); }

private:
    static void setStackSize(std::size_t size) {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, size);
        pthread_setattr_default_np(&attributes);
        pthread_attr_destroy(&attributes);
    }

    std::size_t usual_ = 0;
};

}  // namespace VanticRestKit::test
