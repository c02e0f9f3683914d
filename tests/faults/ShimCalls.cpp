// The system calls of the C library that a test can make fail, pthread_create and getaddrinfo.

#include "Shim.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

using VanticRestKit::test::Call;
using VanticRestKit::test::isToFail;

namespace {

// The C library's own function with this name.
template <class Function>
Function* next(const char* name) noexcept {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// Defines a function that returns `failure` if it must fail, and else calls the C library with `arguments`.
#define VRK_CALL(call, failure, result, name, parameters, arguments) \
    extern "C" result name parameters {                              \
        static auto* const real = next<result parameters>(#name);    \
        return isToFail(Call::call) ? (failure) : real arguments;    \
    }

VRK_CALL(socket, -1, int, socket, (int family, int type, int protocol), (family, type, protocol))
VRK_CALL(socketpair, -1, int, socketpair, (int family, int type, int protocol, int ends[2]),
         (family, type, protocol, ends))
VRK_CALL(connect, -1, int, connect, (int socket, const sockaddr* address, socklen_t size),
         (socket, address, size))
VRK_CALL(send, -1, ssize_t, send, (int socket, const void* bytes, size_t size, int flags),
         (socket, bytes, size, flags))
VRK_CALL(send, -1, ssize_t, sendto,
         (int socket, const void* bytes, size_t size, int flags, const sockaddr* to, socklen_t toSize),
         (socket, bytes, size, flags, to, toSize))
VRK_CALL(send, -1, ssize_t, sendmsg, (int socket, const msghdr* message, int flags), (socket, message, flags))
VRK_CALL(recv, -1, ssize_t, recv, (int socket, void* bytes, size_t size, int flags),
         (socket, bytes, size, flags))
VRK_CALL(recv, -1, ssize_t, recvfrom,
         (int socket, void* bytes, size_t size, int flags, sockaddr* from, socklen_t* fromSize),
         (socket, bytes, size, flags, from, fromSize))
VRK_CALL(recv, -1, ssize_t, recvmsg, (int socket, msghdr* message, int flags), (socket, message, flags))
VRK_CALL(poll, -1, int, poll, (pollfd * watched, nfds_t count, int milliseconds),
         (watched, count, milliseconds))
VRK_CALL(eventfd, -1, int, eventfd, (unsigned count, int flags), (count, flags))
VRK_CALL(setsockopt, -1, int, setsockopt,
         (int socket, int level, int option, const void* value, socklen_t size),
         (socket, level, option, value, size))
VRK_CALL(getsockopt, -1, int, getsockopt, (int socket, int level, int option, void* value, socklen_t* size),
         (socket, level, option, value, size))
VRK_CALL(getsockname, -1, int, getsockname, (int socket, sockaddr* address, socklen_t* size),
         (socket, address, size))
VRK_CALL(getsockname, -1, int, getpeername, (int socket, sockaddr* address, socklen_t* size),
         (socket, address, size))

VRK_CALL(read, -1, ssize_t, read, (int file, void* bytes, size_t size), (file, bytes, size))
VRK_CALL(read, -1, ssize_t, pread, (int file, void* bytes, size_t size, off_t at), (file, bytes, size, at))
VRK_CALL(read, -1, ssize_t, pread64, (int file, void* bytes, size_t size, off64_t at),
         (file, bytes, size, at))
VRK_CALL(write, -1, ssize_t, write, (int file, const void* bytes, size_t size), (file, bytes, size))
VRK_CALL(write, -1, ssize_t, pwrite, (int file, const void* bytes, size_t size, off_t at),
         (file, bytes, size, at))
VRK_CALL(write, -1, ssize_t, pwrite64, (int file, const void* bytes, size_t size, off64_t at),
         (file, bytes, size, at))
VRK_CALL(stat, -1, int, stat, (const char* path, struct stat* status), (path, status))
VRK_CALL(stat, -1, int, stat64, (const char* path, struct stat64* status), (path, status))
VRK_CALL(stat, -1, int, lstat, (const char* path, struct stat* status), (path, status))
VRK_CALL(stat, -1, int, lstat64, (const char* path, struct stat64* status), (path, status))
VRK_CALL(stat, -1, int, fstat, (int file, struct stat* status), (file, status))
VRK_CALL(stat, -1, int, fstat64, (int file, struct stat64* status), (file, status))
VRK_CALL(rename, -1, int, rename, (const char* from, const char* to), (from, to))
VRK_CALL(unlink, -1, int, unlink, (const char* path), (path))
VRK_CALL(mkdir, -1, int, mkdir, (const char* path, mode_t mode), (path, mode))
VRK_CALL(truncate, -1, int, ftruncate, (int file, off_t size), (file, size))
VRK_CALL(truncate, -1, int, ftruncate64, (int file, off64_t size), (file, size))
VRK_CALL(sync, -1, int, fsync, (int file), (file))
VRK_CALL(sync, -1, int, fdatasync, (int file), (file))
VRK_CALL(flock, -1, int, flock, (int file, int operation), (file, operation))
VRK_CALL(open, nullptr, FILE*, fopen, (const char* path, const char* mode), (path, mode))
VRK_CALL(open, nullptr, FILE*, fopen64, (const char* path, const char* mode), (path, mode))
VRK_CALL(open, nullptr, DIR*, opendir, (const char* path), (path))
VRK_CALL(mmap, MAP_FAILED, void*, mmap,
         (void* at, size_t size, int protection, int flags, int file, off_t offset),
         (at, size, protection, flags, file, offset))
VRK_CALL(mmap, MAP_FAILED, void*, mmap64,
         (void* at, size_t size, int protection, int flags, int file, off64_t offset),
         (at, size, protection, flags, file, offset))
// The following two return the error instead of setting errno.
VRK_CALL(pthreadCreate, errno, int, pthread_create,
         (pthread_t * thread, const pthread_attr_t* attributes, void* (*run)(void*), void* argument),
         (thread, attributes, run, argument))
VRK_CALL(getaddrinfo, errno, int, getaddrinfo,
         (const char* host, const char* service, const addrinfo* hints, addrinfo** found),
         (host, service, hints, found))

// Linux closes the descriptor even if close fails.
extern "C" int close(int file) {
    static auto* const real = next<int(int)>("close");
    if (!isToFail(Call::close)) return real(file);
    const int error = errno;
    real(file);
    errno = error;
    return -1;
}

// Functions with an ellipsis take at most one more argument, no wider than a pointer.

#define VRK_OPEN(name)                                                     \
    extern "C" int name(const char* path, int flags, ...) {                \
        static auto* const real = next<int(const char*, int, ...)>(#name); \
        va_list rest;                                                      \
        va_start(rest, flags);                                             \
        const mode_t mode = va_arg(rest, mode_t);                          \
        va_end(rest);                                                      \
        return isToFail(Call::open) ? -1 : real(path, flags, mode);        \
    }

VRK_OPEN(open)
VRK_OPEN(open64)

#define VRK_CONTROL(call, name, Request)                                  \
    extern "C" int name(int file, Request request, ...) {                 \
        static auto* const real = next<int(int, Request, ...)>(#name);    \
        va_list rest;                                                     \
        va_start(rest, request);                                          \
        void* const argument = va_arg(rest, void*);                       \
        va_end(rest);                                                     \
        return isToFail(Call::call) ? -1 : real(file, request, argument); \
    }

VRK_CONTROL(fcntl, fcntl, int)
VRK_CONTROL(fcntl, fcntl64, int)
VRK_CONTROL(ioctl, ioctl, unsigned long)
