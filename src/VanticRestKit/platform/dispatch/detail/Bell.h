#pragma once

/// \file
/// `Bell`: lets a thread sleep until another wakes it.

#include <semaphore.h>

#include <cerrno>

namespace VanticRestKit::detail {

/// A counting semaphore: each `ring` ends one `sleep`, even one that begins later. Callers decide under their own lock
/// whether a thread sleeps or has to be woken, and release that lock before they sleep or ring.
///
/// A condition variable would reacquire the lock in contended mode, and each unlock would then cost a system call.
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
