#pragma once

/// \file
/// The calls that a test can make fail. `Shim.cpp` and `ShimCalls.cpp` replace these functions of the C library; they
/// are linked before it and take precedence, as with LD_PRELOAD.

#include <cstdint>

namespace VanticRestKit::test {

/// A kind of call; functions that differ only in their names count as one.
enum class Call : int {
    malloc,
    calloc,
    realloc,
    alignedAlloc,
    mmap,
    pthreadCreate,
    getaddrinfo,
    socket,
    socketpair,
    connect,
    send,
    recv,
    poll,
    eventfd,
    setsockopt,
    getsockopt,
    getsockname,
    fcntl,
    ioctl,
    open,
    read,
    write,
    stat,
    rename,
    unlink,
    mkdir,
    truncate,
    sync,
    flock,
    close,
};

inline constexpr int callCount = static_cast<int>(Call::close) + 1;

/// A call to make fail.
struct Fault {
    Call call = Call::malloc;
    /// The number of the call among those of its kind, counted from 1 over all threads. 0: no call fails, calls are
    /// only counted.
    std::uint64_t number = 0;
    /// The `errno` that the call fails with, or the result of `getaddrinfo`.
    int error = 0;
};

// None of the following functions allocates.

/// Resets the counts, starts counting calls and makes the call of `fault` fail. If `traces`, prints the stack when it
/// fails.
void arm(const Fault& fault, bool traces);

/// Stops counting calls and making them fail.
void disarm();

/// The number of counted calls of this kind.
std::uint64_t countOf(Call call);

/// Whether the call of the fault has failed.
bool hasFailed();

/// The number of bytes that are allocated and not freed.
std::int64_t liveBytes();

/// While an instance exists, the calls of its thread do not fail and are not counted.
class Exempt {
public:
    Exempt();
    ~Exempt();
    Exempt(const Exempt&) = delete;
    Exempt& operator=(const Exempt&) = delete;
};

/// For the functions of the shim: counts a call and returns whether it must fail. If so, sets errno.
bool isToFail(Call call) noexcept;

}  // namespace VanticRestKit::test
