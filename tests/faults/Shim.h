#pragma once

/// \file
/// What a test can have fail: the functions of the C library that `Shim.cpp` and `ShimCalls.cpp` stand in for, each
/// linked before the C library's own as if it were preloaded.

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

/// A call that is to fail.
struct Fault {
    Call call = Call::malloc;
    /// Which one of its kind, counted from 1 over all threads. 0: none, they are only counted.
    std::uint64_t number = 0;
    /// What the call fails with: an `errno`, or the result of `getaddrinfo`.
    int error = 0;
};

// None of the following allocates.

/// Counts all calls from now on, from 0, and has `fault` happen. If `traces`, it prints the stack then.
void arm(const Fault& fault, bool traces);

/// From now on nothing fails and nothing is counted.
void disarm();

/// How many calls of this kind were counted.
std::uint64_t countOf(Call call);

/// Whether the fault has happened.
bool hasFailed();

/// What was allocated and is not freed, in bytes.
std::int64_t liveBytes();

/// While one lives, the calls of this thread neither fail nor count.
class Exempt {
public:
    Exempt();
    ~Exempt();
    Exempt(const Exempt&) = delete;
    Exempt& operator=(const Exempt&) = delete;
};

/// For the functions of the shim: counts a call. Returns whether it is to fail; errno is set then.
bool isToFail(Call call) noexcept;

}  // namespace VanticRestKit::test
