#include <VanticRestKit/platform/dispatch/detail/Fork.h>

#include <pthread.h>
#include <new>

namespace VanticRestKit::detail {

namespace {
std::atomic<std::uint64_t> forks = 0;
}

std::mutex& forkMutex() noexcept {
    static std::mutex& mutex = *new std::mutex;
    return mutex;
}

std::uint64_t forkCount() noexcept {
    static const int isRegistered = [] {
        forkMutex();
        return pthread_atfork(nullptr, nullptr, [] {
            forks.fetch_add(1);
            // A thread that does not exist in the child may hold it.
            new (&forkMutex()) std::mutex;
        });
    }();
    static_cast<void>(isRegistered);
    return forks.load(std::memory_order_relaxed);
}

}  // namespace VanticRestKit::detail
