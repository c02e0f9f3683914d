#pragma once

/// \file
/// `Bell`: how a thread sleeps until another has something for it.

#include <semaphore.h>

#include <cerrno>

namespace VanticRestKit::detail {

/// Each `ring` ends one `sleep`, also one that only begins later. Who sleeps and who is to be woken is
/// decided under a lock of the user's, so that nobody rings for nothing. A sleeper gives it back before it
/// comes here; who rings does well to do the same, because the one who is woken wants it.
///
/// A condition variable would do too, but its waiters cannot tell that a lock is free which they got back,
/// and so give each one up with a system call.
class Bell {
public:
    Bell() noexcept { sem_init(&rings_, 0, 0); }
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;
    ~Bell() { sem_destroy(&rings_); }

    void ring() noexcept { sem_post(&rings_); }

    void sleep() noexcept {
        while (sem_wait(&rings_) != 0 && errno == EINTR) {
        }
    }

private:
    sem_t rings_;
};

}  // namespace VanticRestKit::detail
